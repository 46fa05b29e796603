// SPDX-License-Identifier: Apache-2.0
// Processes that their starter treats in a way of its own.
#include "platform/process.h"

#include "tests/platform/childprocess.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

namespace platform::test {
namespace {

TEST(Background, KeepsIgnoringASignalThatItsStarterHadItIgnore) {
    const auto before = std::signal(SIGHUP, SIG_IGN);
    ChildProcess child({"interrupted"});
    ASSERT_EQ(child.line(), "ready");
    std::signal(SIGHUP, before);
    ASSERT_EQ(::kill(static_cast<pid_t>(child.id()), SIGHUP), 0);
    EXPECT_FALSE(child.endsWithin(300));
    ASSERT_EQ(::kill(static_cast<pid_t>(child.id()), SIGTERM), 0);
    EXPECT_EQ(child.line(), "interrupted");
}

TEST(Background, IsKnownAsAChildWhateverItsName) {
    const QTemporaryDir folder;
    for (const char* name : {"new\nline", "a) b", "(((("}) {
        const QString program = folder.filePath(name);
        ASSERT_TRUE(QFile::copy(QStringLiteral(CHILD_PROGRAM), program));
        ChildProcess child({"interrupted"}, program);
        ASSERT_EQ(child.line(), "ready");
        EXPECT_EQ(descendants(), std::vector<std::uint32_t>{child.id()}) << name;
    }
}

TEST(Background, IsWokenInOrderToEnd) {
    ChildProcess child({"interrupted"});
    ASSERT_EQ(child.line(), "ready");
    ASSERT_EQ(::kill(static_cast<pid_t>(child.id()), SIGSTOP), 0);
    endProcess(child.id());
    EXPECT_EQ(child.line(), "interrupted");
}

/// Where channels have no numbers that other files could get, there is nothing to see.
TEST(Background, TakesNoWordForAnInterruptWhereItsChannelsCameClosed) {
    const QTemporaryDir folder;
    const QString mark = folder.filePath("mark");
    const QString command = QStringLiteral("exec " CHILD_PROGRAM " talk '%1' %2").arg(mark);
    for (const char* closed : {"0<&-", "0<&- 1>&-", "0<&- 1>&- 2>&-"}) {
        ChildProcess child({"-c", command.arg(closed)}, "/bin/sh");
        EXPECT_EQ(child.exitCode(), 0);
        EXPECT_FALSE(QFile::exists(mark)) << closed;
    }
}

} // namespace
} // namespace platform::test
