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
        EXPECT_EQ(childProcesses(), std::vector<std::uint32_t>{child.id()}) << name;
    }
}

} // namespace
} // namespace platform::test
