// SPDX-License-Identifier: Apache-2.0
// Parents, children, interrupts and limits.
#include "platform/process.h"

#include "platform/clock.h"
#include "platform/file.h"
#include "tests/platform/childprocess.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define ADDRESS_SPACE_IS_TAKEN
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ADDRESS_SPACE_IS_TAKEN
#endif

namespace platform::test {
namespace {

bool isChild(std::uint32_t id) {
    const auto children = childProcesses();
    return std::find(children.begin(), children.end(), id) != children.end();
}

TEST(Process, KnowsItsChildrenWhileTheyRun) {
    const std::uint32_t self = processId();
    EXPECT_TRUE(isProcessAlive(self));
    EXPECT_FALSE(isChild(self));
    ChildProcess child({"interrupted"});
    ASSERT_EQ(child.line(), "ready");
    const std::uint32_t id = child.id();
    EXPECT_TRUE(isChild(id));
    EXPECT_TRUE(isProcessAlive(id));
    child.kill();
    EXPECT_FALSE(isChild(id));
    EXPECT_FALSE(isProcessAlive(id));
}

TEST(Process, IsKnownToItsChildrenAsTheirParent) {
    ChildProcess child({"nameParent"});
    EXPECT_EQ(child.line(), std::to_string(processId()) + " is alive");
}

TEST(Process, AsksItsChildrenToEndAndTheirCallbacksAnswer) {
    ChildProcess first({"interrupted"}), second({"interrupted"});
    ASSERT_EQ(first.line(), "ready");
    ASSERT_EQ(second.line(), "ready");
    EXPECT_EQ(terminateChildren(), 2);
    for (ChildProcess* child : {&first, &second}) {
        EXPECT_EQ(child->line(), "interrupted");
        EXPECT_EQ(child->exitCode(), 9);
    }
    EXPECT_EQ(terminateChildren(), 0);
}

TEST(Process, EndsByForceTheChildrenThatWillNot) {
    ChildProcess child({"stubborn"});
    ASSERT_EQ(child.line(), "ready");
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(terminateChildren(), 1);
        EXPECT_EQ(child.line(), "no") << "each request is told";
    }
    EXPECT_TRUE(isChild(child.id()));
    EXPECT_EQ(terminateChildren(true), 1);
    EXPECT_NE(child.exitCode(), 0);
}

TEST(Process, LearnsThatItsParentHasGone) {
    const Scratch scratch;
    ChildProcess parent({"die", QString::fromStdString(scratch.narrow("mark"))});
    ASSERT_EQ(parent.exitCode(), 0);
    for (int turn = 0; turn < 200 && !scratch.has("mark"); ++turn) sleep(50);
    EXPECT_TRUE(scratch.has("mark"));
}

TEST(Process, GetsNoMoreMemoryThanItsLimit) {
#ifdef ADDRESS_SPACE_IS_TAKEN
    GTEST_SKIP() << "this build keeps terabytes of addresses for itself";
#endif
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
