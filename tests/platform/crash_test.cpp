// SPDX-License-Identifier: Apache-2.0
// The last line of a process that crashes.
#include "platform/process.h"

#include "tests/platform/childprocess.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace platform::test {
namespace {

TEST(Crash, IsToldInOneLineAndRemovesTheUnfinishedFile) {
    const std::pair<std::string, const char*> kinds[] = {
        {"abort", "abort"},
        {"pointer", "invalid memory access"},
        {"stack", "invalid memory access"},
        {"memory", "invalid memory access"},
        {"fault", "arithmetic fault"},
        {"instruction", "illegal instruction"},
    };
    const Scratch scratch;
    scratch.write("other", "whole");
    for (const auto& [kind, words] : kinds) {
        scratch.write("unfinished", "half");
        const std::string job = kind + ":" + scratch.narrow("unfinished");
        ChildProcess child({"crash", QString::fromStdString(job)});
        EXPECT_EQ(child.exitCode(), 8) << kind;
        EXPECT_EQ(child.errors(), std::string("child: crashed (") + words + ") while testing\n")
            << kind;
        EXPECT_FALSE(scratch.has("unfinished")) << kind;
        EXPECT_TRUE(scratch.has("other")) << kind;
    }
}

TEST(Crash, WithoutAFileToRemoveIsToldToo) {
    ChildProcess child({"crash", "abort"});
    EXPECT_EQ(child.exitCode(), 8);
    EXPECT_EQ(child.errors(), "child: crashed (abort) while testing\n");
}

} // namespace
} // namespace platform::test
