// SPDX-License-Identifier: Apache-2.0
// Unicode text operations, in place where they must be.
#include "host/services/stringsupport.h"

#include "tests/host/hosttest.h"

#include <functional>

namespace host {
namespace {

class StringSupportTest : public HostTest {
protected:
    using InPlace = std::function<void(IZelStrSupport&, char16_t*)>;

    std::u16string changed(const InPlace& operation, std::u16string source) {
        operation(*support.iface, source.data());
        return source.c_str();
    }
    IPtr<StringSupport> support{new StringSupport};
};

TEST_F(StringSupportTest, GivesUtf8AsTheNarrowForm) {
    KorCString narrow;
    support->toNarrow(narrow, KorString(u"a\u00e9\u20ac\U0001F600"));
    EXPECT_STREQ(narrow.c_str(), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST_F(StringSupportTest, ChangesTextsInPlace) {
    const struct {
        InPlace operation;
        std::u16string before, after;
    } cases[] = {
        {&IZelStrSupport::toUpper, u"gr\u00fc\u00df \u03c9", u"GR\u00dc\u00df \u03a9"},
        {&IZelStrSupport::toLower, u"\u00c4\u0416Z1", u"\u00e4\u0436z1"},
        {&IZelStrSupport::toLower, u"\U00010400", u"\U00010428"},
        {&IZelStrSupport::toLower, u"\xD801", u"\xD801"},
        {&IZelStrSupport::stripSpace, u" a\u00a0b\t\u2003c\n", u"abc"},
        {&IZelStrSupport::simplify, u"\t a \u2003\n b  ", u"a b"},
        {&IZelStrSupport::simplify, u"  ", u""},
        {&IZelStrSupport::toUpper, u"", u""},
    };
    for (const auto& each : cases) EXPECT_EQ(changed(each.operation, each.before), each.after);
}

TEST_F(StringSupportTest, OrdersAndSearchesWithAndWithoutCase) {
    EXPECT_LT(support->compare(text("a"), text("b")), 0);
    EXPECT_GT(support->compare(text("b"), text("a")), 0);
    EXPECT_EQ(support->compare(text("\xC3\xA9"), text("\xC3\xA9")), 0);
    EXPECT_NE(support->compare(text("a"), text("A")), 0);
    EXPECT_TRUE(support->contains(text("STRASSE \xC3\x84"), text("\xC3\xA4"), false));
    EXPECT_FALSE(support->contains(text("\xC3\x84"), text("\xC3\xA4"), true));
}

TEST_F(StringSupportTest, KnowsSpacesAndDigitsOutsideAscii) {
    EXPECT_TRUE(support->isSpace(u'\u2003'));
    EXPECT_TRUE(support->isDigit(u'\u0664'));
    EXPECT_FALSE(support->isSpace(u'a'));
    EXPECT_FALSE(support->isDigit(u'a'));
}

} // namespace
} // namespace host
