// SPDX-License-Identifier: Apache-2.0
// A string that asks for the host's text operations before the host is there. A program of its own,
// since a process looks for them only once.
#include "tests/support/fakemanager.h"
#include "tests/zelbasictypes/oddsupport.h"
#include "zelbasictypes/text/strsupport.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

TEST(EarlyStrSupport, LeavesThePlainFormsInForceOnceItWasMissed) {
    EXPECT_FALSE(KorString("b") < KorString("a"));
    testsupport::FakeManager manager;
    manager.offer(IZelStrSupport::interfaceName, new OddSupport);
    const KorString text(u"A \tb\u00e97");
    EXPECT_EQ(zelStrSupport(), nullptr);
    EXPECT_STREQ(text.toNarrow(), "A \tb7");
    EXPECT_EQ(text.compare("A"), 1);
    EXPECT_TRUE(text.isSpaceAt(2) && text.isDigitAt(5));
    EXPECT_TRUE(text.contains("a \tB", false));
    EXPECT_FALSE(text.contains("x", false));
    EXPECT_EQ(text.stripSpace(), KorString(u"Ab\u00e97"));
    EXPECT_EQ(KorString("aba").simplify(u'_'), "aba");
    EXPECT_EQ(text.toLower(), KorString(u"a \tb\u00e97"));
    EXPECT_EQ(text.toUpper(), KorString(u"A \tB\u00e97"));
    EXPECT_EQ(std::count(manager.lookups.begin(), manager.lookups.end(), "IZelStrSupport"), 0);
}

} // namespace
