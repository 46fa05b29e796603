// SPDX-License-Identifier: Apache-2.0
// Work in copies of the process, and the file that a dying one leaves.
#include "platform/processcopy.h"

#include "platform/clock.h"
#include "platform/lastfile.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>
#include <string>

namespace platform::test {
namespace {

class ProcessCopy : public ::testing::Test {
protected:
    void SetUp() override {
        if (run([](const TakeBytes&) {}) == CopyEnd::notOffered) {
            GTEST_SKIP() << "this system has no copies of processes";
        }
    }

    CopyEnd run(const std::function<void(const TakeBytes&)>& work, double seconds = 0) {
        return runInCopy(
            work,
            [this](const char* bytes, std::size_t length) { received_.append(bytes, length); },
            seconds);
    }

    std::string received_;
};

TEST_F(ProcessCopy, SendsWhatItFindsOutAndChangesNothingHere) {
    const std::string long_(300'000, 'x');
    int changed = 0;
    EXPECT_EQ(run([&](const TakeBytes& send) {
                  changed = 1;
                  send("ab", 2);
                  send(long_.data(), long_.size());
              }),
              CopyEnd::done);
    EXPECT_EQ(received_, "ab" + long_);
    EXPECT_EQ(changed, 0);
}

TEST_F(ProcessCopy, DiesAloneAndWhatItSentBeforeIsKept) {
    EXPECT_EQ(run([](const TakeBytes& send) {
                  send("before", 6);
                  std::raise(SIGSEGV);
              }),
              CopyEnd::failed);
    EXPECT_EQ(received_, "before");
    EXPECT_EQ(run([](const TakeBytes&) { throw std::runtime_error("no"); }), CopyEnd::failed);
}

/// The clock is the processor's, so that a busy machine doesn't make it fail.
void work(double seconds) {
    const double end = processorSeconds() + seconds;
    while (processorSeconds() < end) {
    }
}

TEST_F(ProcessCopy, IsLimitedFromOneSendingToTheNext) {
    const double before = processorSeconds();
    EXPECT_EQ(run([](const TakeBytes&) { work(1e9); }, 0.2), CopyEnd::limit);
    const auto steps = [](const TakeBytes& send) {
        for (int i = 0; i < 4; ++i) {
            work(0.2);
            send(".", 1);
        }
    };
    EXPECT_EQ(run(steps, 0.6), CopyEnd::done);
    EXPECT_EQ(received_, "....");
    // Sendings in close succession, with no pause in which anybody would look at the clock.
    const auto quickSteps = [](const TakeBytes& send) {
        for (int i = 0; i < 80; ++i) {
            work(0.01);
            send(".", 1);
        }
        work(0.3);
    };
    EXPECT_EQ(run(quickSteps, 0.6), CopyEnd::done);
    EXPECT_GE(processorSeconds() - before, 0.9) << "copies that ended count";
}

TEST(LastFile, TakesThePlaceOfWhatBearsItsName) {
    const Scratch scratch;
    const std::string path = scratch.narrow("last");
    scratch.write("last", "an earlier and longer one");
    ASSERT_TRUE(leaveFile(path.c_str(), "the last", 8));
    EXPECT_EQ(scratch.read("last"), "the last");
    EXPECT_FALSE(leaveFile(scratch.narrow("nowhere/last").c_str(), "x", 1));
}

} // namespace
} // namespace platform::test
