// SPDX-License-Identifier: Apache-2.0
// Glob patterns of both widths.
#include "zelbasictypes/files/korpattern.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace {

bool matchesBoth(const std::string& pattern, const std::string& text) {
    const bool wide = KorPattern(KorString(pattern.c_str())).match(KorString(text.c_str()));
    const bool narrow = KorCPattern(KorCString(pattern.c_str())).match(KorCString(text.c_str()));
    EXPECT_EQ(wide, narrow) << pattern << " on " << text;
    return wide;
}

/// `set` ends with its bracket, up to which a last dash makes a range.
bool isInSet(std::string_view set, char c) {
    if (set.size() < 2) return false;
    if (set[1] == '-') {
        if (set[0] <= c && c <= set[2]) return true;
    } else if (set[0] == c) {
        return true;
    }
    return isInSet(set.substr(1), c);
}

/// Tries one way after the other, as patterns are explained to people.
bool model(std::string_view pattern, std::string_view text) {
    if (pattern.empty()) return text.empty();
    const std::string_view rest = pattern.substr(1);
    if (pattern[0] == '*')
        return model(rest, text) || (!text.empty() && model(pattern, text.substr(1)));
    if (text.empty()) return false;
    if (pattern[0] == '?' || pattern[0] == text[0]) return model(rest, text.substr(1));
    const std::size_t end = rest.find(']');
    return pattern[0] == '[' && end != rest.npos && isInSet(rest.substr(0, end + 1), text[0]) &&
           model(rest.substr(end + 1), text.substr(1));
}

} // namespace

TEST(KorPattern, AgreesWithTryingEveryWay) {
    std::mt19937 random(11);
    const std::string_view signs = "ab*?[]-c", letters = "abc[]-";
    const auto draw = [&random](std::string_view from, std::size_t most) {
        std::string text;
        for (std::size_t n = random() % (most + 1); n > 0; --n)
            text += from[random() % from.size()];
        return text;
    };
    int matched = 0;
    for (int i = 0; i < 30000; ++i) {
        const std::string pattern = draw(signs, 9), text = draw(letters, 6);
        const bool expected = model(pattern, text);
        ASSERT_EQ(matchesBoth(pattern, text), expected) << pattern << " on " << text;
        matched += expected;
    }
    EXPECT_GT(matched, 1000) << "or the texts are of no use";
}

TEST(KorPattern, LowersBothSidesOnRequest) {
    const KorPattern wide(KorString("*.DirECT"), ZelPatternCase::lowered);
    EXPECT_TRUE(wide.matchLowered(KorString("Model.DIRECT")));
    EXPECT_FALSE(wide.match(KorString("Model.DIRECT")));
    EXPECT_TRUE(wide.match(KorString("model.direct")));
    const KorCPattern narrow(KorCString("[A-C]*"), ZelPatternCase::lowered);
    EXPECT_TRUE(narrow.matchLowered(KorCString("Body")));
    EXPECT_FALSE(narrow.matchLowered(KorCString("Edge")));
    EXPECT_TRUE(KorCPattern(KorCString()).match(KorCString())) << "a null text is an empty one";
}

/// Each star would double the work of a matcher that tries ways.
TEST(KorPattern, IsNotSlowedDownByManyStars) {
    std::string pattern;
    for (int i = 0; i < 200; ++i) pattern += "*a";
    EXPECT_TRUE(matchesBoth(pattern, std::string(1000, 'a')));
    EXPECT_FALSE(matchesBoth(pattern + 'b', std::string(1000, 'a')));
}
