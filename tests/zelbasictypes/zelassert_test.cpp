// SPDX-License-Identifier: Apache-2.0
// Who hears of a failed assertion, and the break flag.
#include "zelbasictypes/diagnostics/zelassert.h"

#include "component/objects/services/izelasserthandlercb.h"
#include "tests/support/service.h"
#include "tests/support/variables.h"
#include "tests/zelbasictypes/assertioncounter.h"
#include "tests/zelbasictypes/fakehost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace {

class Handler : public testsupport::Service<IZelAssertHandlerCB> {
public:
    void onAssert(const char* expression, const char* file, std::int32_t line) override {
        heard = expression;
        where = std::string(file) + ":" + std::to_string(line);
    }

    std::string heard;
    std::string where;
};

class ZelAssert : public testing::Test {
protected:
    ZelAssert() {
        handler.addRef();
        fakehost::withdrawAll();
    }
    ~ZelAssert() override {
        fakehost::withdrawAll();
        handler.releaseNoDelete();
    }

    Handler handler;
};

std::int32_t guarded(std::int32_t start) {
    if (!ZEL_ASSERT(start >= 0)) return -1;
    return start;
}

} // namespace

TEST_F(ZelAssert, GoesToTheHostAndThenToTheFallBack) {
    fakehost::offer<IZelAssertHandlerCB>(&handler);
    EXPECT_EQ(guarded(5), 5);
    EXPECT_EQ(handler.heard, "");
    EXPECT_EQ(guarded(-5), -1);
    EXPECT_EQ(handler.heard, "start >= 0");
    EXPECT_NE(handler.where.find("zelassert_test.cpp:"), std::string::npos);
    EXPECT_EQ(handler.refCount(), 1);
}

TEST_F(ZelAssert, PrefersTheModulesOwnHandlerAndThenLooksNothingUp) {
    fakehost::offer<IZelAssertHandlerCB>(&handler);
    {
        const AssertionCounter own;
        EXPECT_EQ(guarded(-5), -1);
        EXPECT_EQ(own.last, "start >= 0");
        EXPECT_EQ(fakehost::lookUps("IZelAssertHandlerCB"), 0);
    }
    EXPECT_EQ(guarded(-5), -1);
    EXPECT_EQ(handler.heard, "start >= 0");
}

TEST_F(ZelAssert, EndsTheProcessWhenNobodyListens) {
    EXPECT_EXIT(guarded(-5), testing::ExitedWithCode(255), "");
}

TEST(ZelBreakEnabled, IsOffOnlyForAnEnvironmentThatSaysZero) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a new process reads the variable anew
    const std::pair<const char*, bool> cases[] = {
        {"0", false}, {"1", true}, {"00", true}, {"yes", true}, {"", true}};
    for (const auto& [value, expected] : cases) {
        ASSERT_TRUE(testsupport::setVariable("ZEL_BREAK_ENABLED", value));
        EXPECT_EXIT(std::exit(zelBreakEnabled() ? 1 : 0), testing::ExitedWithCode(expected), "")
            << value;
    }
    testsupport::clearVariable("ZEL_BREAK_ENABLED");
    EXPECT_EXIT(std::exit(zelBreakEnabled() ? 1 : 0), testing::ExitedWithCode(1), "");
}
