// SPDX-License-Identifier: Apache-2.0
// The wide string with the host's text operations, and their one look-up. A program of its own:
// what the first look-up found holds for the life of the process.
#include "zelbasictypes/text/strsupport.h"

#include "tests/support/fakemanager.h"
#include "tests/zelbasictypes/oddsupport.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

namespace {

/// Orders strings while it is asked for the service, as a host that keeps its services in a map.
class OrderingManager : public testsupport::FakeManager {
public:
    std::int32_t getService(const KorCString& name, void** out) override {
        askedBack += KorString("a") < KorString("b");
        return FakeManager::getService(name, out);
    }
    int askedBack = 0;
};

class StrSupport : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static OddSupport service;
        manager().offer(IZelStrSupport::interfaceName, &service);
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) threads.emplace_back([] { zelStrSupport(); });
        for (std::thread& thread : threads) thread.join();
    }
    static OrderingManager& manager() {
        static auto* const one = new OrderingManager;
        return *one;
    }
};

TEST_F(StrSupport, IsLookedUpOnceThoughTheHostUsesStringsMeanwhile) {
    KorString("a").compare("b");
    const auto& asked = manager().lookups;
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "IZelStrSupport"), 1);
    EXPECT_GE(manager().askedBack, 1);
    EXPECT_NE(zelStrSupport(), nullptr);
}

TEST_F(StrSupport, OrdersButDoesNotDecideEquality) {
    EXPECT_TRUE(KorString("bb") < KorString("a"));
    EXPECT_EQ(KorString("bb").compare("a"), -1);
    EXPECT_EQ(KorString("a").compare("bb"), 1);
    EXPECT_EQ(KorString("a").compare("a"), 0);
    EXPECT_FALSE(KorString("a") == KorString("b"));
}

TEST_F(StrSupport, MakesTheNarrowForm) {
    EXPECT_STREQ(KorString("abc").toNarrow(), "narrow 3");
    EXPECT_STREQ(KorString("none").toNarrow(), "");
    EXPECT_STREQ(KorString::borrow(u"abc", "given").toNarrow(), "given");
    EXPECT_EQ(KorString("12").toInt(), 12);
}

TEST_F(StrSupport, ClassifiesAndConverts) {
    const KorString text(u"a_\u0663");
    EXPECT_TRUE(text.isSpaceAt(1) && text.isDigitAt(2));
    EXPECT_FALSE(text.isSpaceAt(3) || KorString("1").isDigitAt(0));
    EXPECT_FALSE(text.contains("a"));
    EXPECT_TRUE(text.contains("x", false));
    EXPECT_EQ(text.toLower(), KorString(u"l_\u0663"));
    EXPECT_EQ(text.toUpper(), KorString(u"u_\u0663"));
    EXPECT_EQ(text.stripSpace(), "a");
    EXPECT_EQ(KorString("aba").simplify(), "_b_");
    EXPECT_EQ(KorString("aba").simplify(u'-'), "-b-");
}

TEST_F(StrSupport, WorksOnACopy) {
    char16_t storage[] = u"aba";
    const KorString text = KorString::borrow(storage);
    text.toLower(), text.simplify(), text.stripSpace();
    EXPECT_EQ(std::u16string(storage), u"aba");
    EXPECT_TRUE(KorString().toUpper().isNull());
    EXPECT_TRUE(KorString().simplify(u'-').isNull());
}

} // namespace
