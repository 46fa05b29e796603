// SPDX-License-Identifier: Apache-2.0
// Parents, children, interrupts and limits.
#include "platform/process.h"

#include "platform/clock.h"
#include "platform/file.h"
#include "platform/starter.h"
#include "tests/platform/childprocess.h"
#include "tests/support/addressspace.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace platform::test {
namespace {

bool isDescendant(std::uint32_t id) {
    const auto all = descendants();
    return std::find(all.begin(), all.end(), id) != all.end();
}

TEST(Process, KnowsItsChildrenWhileTheyRun) {
    const std::uint32_t self = processId();
    EXPECT_TRUE(isMarkAlive(processMark(self)));
    EXPECT_FALSE(isDescendant(self));
    ChildProcess child({"interrupted"});
    ASSERT_EQ(child.line(), "ready");
    const std::uint32_t id = child.id();
    const std::string mark = processMark(id);
    EXPECT_TRUE(isDescendant(id));
    EXPECT_TRUE(isMarkAlive(mark));
    EXPECT_FALSE(isMarkAlive(mark + "0")) << "another process had that number";
    child.kill();
    EXPECT_FALSE(isDescendant(id));
    EXPECT_FALSE(isProcessAlive(id));
    EXPECT_FALSE(isMarkAlive(mark));
}

TEST(Process, IsKnownToItsChildrenAsTheirParent) {
    ChildProcess child({"nameParent"});
    EXPECT_EQ(child.line(), std::to_string(processId()) + " is alive");
}

TEST(Process, AsksItsOffspringToEndAndTheirCallbacksAnswer) {
    const ChildProcess elder({"stubborn"});
    const Offspring offspring;
    ChildProcess first({"interrupted"}), second({"interrupted"});
    ASSERT_EQ(first.line(), "ready");
    ASSERT_EQ(second.line(), "ready");
    EXPECT_EQ(offspring.end(), 2);
    for (ChildProcess* child : {&first, &second}) {
        EXPECT_EQ(child->line(), "interrupted");
        EXPECT_EQ(child->exitCode(), 9);
    }
    EXPECT_EQ(offspring.end(), 0);
    EXPECT_TRUE(isDescendant(elder.id())) << "it was there before";
}

TEST(Process, EndsByForceTheChildThatWillNot) {
    ChildProcess child({"stubborn"});
    ASSERT_EQ(child.line(), "ready");
    for (int turn = 0; turn < 2; ++turn) {
        endProcess(child.id());
        EXPECT_EQ(child.line(), "no") << "each request is told";
    }
    EXPECT_TRUE(isDescendant(child.id()));
    endProcess(child.id(), true);
    EXPECT_NE(child.exitCode(), 0);
}

TEST(Process, ReachesADescendantWhoseParentHasGone) {
    ChildProcess child({"supervise"});
    EXPECT_EQ(child.line(), "1");
    EXPECT_EQ(child.line(), "0");
}

TEST(Process, LearnsThatItsParentHasGone) {
    const Scratch scratch;
    ChildProcess parent({"die", QString::fromStdString(scratch.narrow("mark"))});
    ASSERT_EQ(parent.exitCode(), 0);
    for (int turn = 0; turn < 200 && !scratch.has("mark"); ++turn) sleep(50);
    EXPECT_TRUE(scratch.has("mark"));
}

TEST(Process, LearnsThatWhoAnswersForItHadGoneBeforeItBegan) {
    const Scratch scratch;
    ChildProcess starter({"interrupted"});
    ASSERT_EQ(starter.line(), "ready");
    qputenv(starterVariable, processMark(starter.id()).c_str());
    starter.kill();
    ChildProcess orphan({"watch", QString::fromStdString(scratch.narrow("mark"))});
    qunsetenv(starterVariable);
    EXPECT_EQ(orphan.exitCode(), 10);
}

TEST(Process, GetsNoMoreMemoryThanItsLimit) {
    if (testsupport::addressSpaceIsTaken) GTEST_SKIP() << "this build has no limit on memory";
    ChildProcess child({"useMemory", QString::number(qulonglong{1} << 30)});
    EXPECT_EQ(child.exitCode(), 0);
}

TEST(Process, NamesItsOwnProgram) {
    const std::u16string path = executablePath();
    EXPECT_EQ(path.find(u'/'), path.npos);
    const std::u16string file = path.substr(path.rfind(u'\\') + 1);
    EXPECT_EQ(file.find(u"platform_process_test"), 0u);
    EXPECT_EQ(access(path.c_str(), 0), 0);
}

} // namespace
} // namespace platform::test
