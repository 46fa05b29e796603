// SPDX-License-Identifier: Apache-2.0
// Every operation that takes a place, a length or a limit and makes a text, at places in and far
// outside the text, of every size that a register of text may end in. The texts are copies without
// a byte to spare, so that a sanitizer sees a step outside.
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

namespace {

using textmodel::placesAround;

/// A text of that size in which few units repeat.
template <class Text> Text sample(std::size_t size) {
    Text text;
    for (std::size_t i = 0; i < size; ++i)
        text += static_cast<typename Text::value_type>('a' + i % 23);
    return text;
}

class TextBounds : public testing::TestWithParam<std::size_t> {
protected:
    const std::string narrow = sample<std::string>(GetParam());
    const std::u16string wide = sample<std::u16string>(GetParam());
    const std::vector<char> exactNarrow = textmodel::exactCopy(narrow);
    const std::vector<char16_t> exactWide = textmodel::exactCopy(wide);
    const KorCString korNarrow = KorCString::borrow(exactNarrow.data());
    const KorString korWide = KorString::borrow(exactWide.data());
};

TEST_P(TextBounds, HoldForLimits) {
    for (const std::int32_t n : placesAround(wide.size())) {
        SCOPED_TRACE(n);
        const std::string narrowLeft = textmodel::left(narrow, n);
        const std::u16string wideLeft = textmodel::left(wide, n);
        EXPECT_EQ(KorCString(exactNarrow.data(), n).view(), narrowLeft);
        EXPECT_EQ(KorCString(exactWide.data(), n).view(), narrowLeft);
        EXPECT_EQ(KorString(exactNarrow.data(), n).view(), wideLeft);
        EXPECT_EQ(KorString(exactWide.data(), n).view(), wideLeft);
        EXPECT_EQ(korWide.left(n).view(), wideLeft);
        KorCString assigned("before");
        assigned.assign(exactNarrow.data(), n);
        EXPECT_EQ(assigned.view(), narrowLeft);
        KorString assignedWide("before");
        assignedWide.assign(exactWide.data(), n);
        EXPECT_EQ(assignedWide.view(), n == 0 ? wide : wideLeft);
        assignedWide.assign(exactNarrow.data(), n);
        EXPECT_EQ(assignedWide.view(), wideLeft);
        KorString cut(exactWide.data());
        cut.truncate(n);
        EXPECT_EQ(cut.view(), n < 0 ? wide : wideLeft);
    }
}

TEST_P(TextBounds, HoldForRanges) {
    const std::vector<std::int32_t> places = placesAround(wide.size());
    for (const std::int32_t at : places) {
        for (const std::int32_t n : places) {
            SCOPED_TRACE(testing::Message() << at << ' ' << n);
            EXPECT_EQ(korWide.mid(at, n).view(), textmodel::mid(wide, at, n));
            EXPECT_EQ(korWide.replaced(at, n, "<>").view(),
                      textmodel::replaced<std::u16string>(wide, at, n, u"<>"));
            KorCString changed = korNarrow;
            changed.replaceRange(at, n, "<>");
            EXPECT_EQ(changed.view(), textmodel::replacedRange<std::string>(narrow, at, n, "<>"));
            KorString shortened = korWide;
            shortened.remove(at, n);
            EXPECT_EQ(shortened.view(), textmodel::replacedRange(wide, at, n, std::u16string()));
        }
    }
}

TEST_P(TextBounds, HoldForFitting) {
    const std::vector<std::int32_t> places = placesAround(wide.size());
    for (const std::int32_t width : places) {
        for (const std::int32_t dots : places) {
            if (width == INT_MAX && dots == INT_MAX) continue; // as many full stops, 2 GB of them
            for (const std::int32_t mode : {0, 1, 2}) {
                SCOPED_TRACE(testing::Message() << width << ' ' << mode << ' ' << dots);
                EXPECT_EQ(korNarrow.fit(width, mode, dots).view(),
                          textmodel::fitted(narrow, width, mode, dots));
                EXPECT_EQ(korWide.fit(width, mode, dots).view(),
                          textmodel::fitted(wide, width, mode, dots));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, TextBounds,
                         testing::Values(0, 1, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 130));

} // namespace
