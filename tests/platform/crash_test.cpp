// SPDX-License-Identifier: Apache-2.0
// The last line of a process that crashes.
#include "platform/process.h"

#include "tests/platform/childprocess.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::test {
namespace {

struct Crash {
    const char* kind;
    const char* words;
};

void PrintTo(const Crash& crash, std::ostream* out) { *out << crash.kind; }

class Crashes : public testing::TestWithParam<Crash> {};

TEST_P(Crashes, AreToldInOneLineAndRemoveTheUnfinishedFile) {
    const Scratch scratch;
    scratch.write("unfinished", "half");
    scratch.write("other", "whole");
    const std::string job = GetParam().kind + (":" + scratch.narrow("unfinished"));
    ChildProcess child({"crash", QString::fromStdString(job)});
    EXPECT_EQ(child.exitCode(), 8);
    EXPECT_EQ(child.errors(),
              std::string("child: crashed (") + GetParam().words + ") while testing\n");
    EXPECT_FALSE(scratch.has("unfinished"));
    EXPECT_TRUE(scratch.has("other"));
}

INSTANTIATE_TEST_SUITE_P(, Crashes,
                         testing::Values(Crash{"abort", "abort"},
                                         Crash{"pointer", "invalid memory access"},
                                         Crash{"stack", "invalid memory access"},
                                         Crash{"memory", "invalid memory access"},
                                         Crash{"fault", "arithmetic fault"},
                                         Crash{"instruction", "illegal instruction"}),
                         [](const auto& given) { return given.param.kind; });

TEST(Crash, WithoutAFileToRemoveIsToldToo) {
    ChildProcess child({"crash", "abort"});
    EXPECT_EQ(child.exitCode(), 8);
    EXPECT_EQ(child.errors(), "child: crashed (abort) while testing\n");
}

} // namespace
} // namespace platform::test
