// SPDX-License-Identifier: Apache-2.0
// Both string classes against the standard library's: random operations, compared after each. The
// texts are read through borrowed copies of exact size too, so that a sanitizer sees a step
// outside.
#include "tests/zelbasictypes/assertioncounter.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <algorithm>
#include <climits>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

/// Few different units make overlaps and repeats likely; the lengths straddle whole registers.
template <class Unit> class Source {
public:
    explicit Source(unsigned seed) : random(seed) {}

    int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
    Unit unit() { return "aabbcdX "[below(8)]; }
    std::basic_string<Unit> text(int maxLength) {
        std::basic_string<Unit> result(static_cast<std::size_t>(below(maxLength + 1)), Unit());
        for (Unit& u : result) u = unit();
        return result;
    }
    /// A position or length in or around a text of `size` units.
    std::int32_t place(std::size_t size) {
        const auto end = static_cast<std::int32_t>(size);
        const std::int32_t special[] = {-1, 0, end - 1, end, end + 1, INT_MAX};
        return below(3) == 0 ? special[below(6)] : below(end + 1);
    }

private:
    std::mt19937 random;
};

template <class Text>
std::int32_t modelFind(const Text& text, const Text& part, std::int32_t start) {
    if (part.empty()) return 0;
    if (start < 0) return -1;
    const std::size_t hit = text.find(part, static_cast<std::size_t>(start));
    return hit == Text::npos ? -1 : static_cast<std::int32_t>(hit);
}

template <class Text>
std::int32_t modelRfind(const Text& text, const Text& part, std::int32_t limit) {
    const std::size_t hit =
        text.rfind(part, limit < 0 ? Text::npos : static_cast<std::size_t>(limit));
    return hit == Text::npos ? -1 : static_cast<std::int32_t>(hit);
}

template <class Text> Text modelReplaceAll(Text text, const Text& from, const Text& to) {
    if (from.empty()) return text;
    for (std::size_t at = 0; (at = text.find(from, at)) != Text::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

template <class Text> Text modelMid(const Text& text, std::int32_t start, std::int32_t n) {
    const auto from = static_cast<std::size_t>(std::max(start, 0));
    return from >= text.size() ? Text() : text.substr(from, static_cast<std::size_t>(n));
}

class NarrowModel : public testing::TestWithParam<unsigned> {
protected:
    KorCString kor(const std::string& s) { return KorCString(s.c_str()); }

    void step() {
        const std::string piece = source.text(source.below(4) ? 3 : 70);
        const std::int32_t at = source.place(model.size()), n = source.place(model.size());
        switch (source.below(9)) {
        case 0:
            text.append(kor(piece)), model += piece;
            break;
        case 1:
            text.append('c'), model += 'c';
            break;
        case 2:
            replaceRange(at, n, piece);
            break;
        case 3:
            replaceAll(piece.substr(0, 2), source.text(3));
            break;
        case 4:
            text.replaceChar('a', 'd'), std::replace(model.begin(), model.end(), 'a', 'd');
            break;
        case 5:
            text.reverse(), std::reverse(model.begin(), model.end());
            break;
        case 6:
            model = piece.substr(0, static_cast<std::size_t>(n)), text.assign(piece.c_str(), n);
            break;
        case 7:
            text = KorCString(KorCString(text));
            break;
        case 8:
            lent = model, text = KorCString::borrow(lent.c_str());
            break;
        }
        if (model.size() > 300) text.assign("b"), model = "b";
    }

    void replaceRange(std::int32_t at, std::int32_t n, const std::string& with) {
        text.replaceRange(at, n, kor(with));
        if (at >= 0 && at <= static_cast<std::int32_t>(model.size()))
            model.replace(static_cast<std::size_t>(at), static_cast<std::size_t>(n), with);
    }

    void replaceAll(const std::string& from, const std::string& to) {
        text.replaceAll(kor(from), kor(to));
        model = modelReplaceAll(model, from, to);
    }

    void check() {
        ASSERT_EQ(text.view(), model);
        const std::vector<char> exact(model.c_str(), model.c_str() + model.size() + 1);
        const KorCString copy = KorCString::borrow(exact.data());
        const std::string part = source.text(3);
        const std::int32_t start = std::max(source.place(model.size()), 0);
        ASSERT_EQ(copy.find(kor(part), start), modelFind(model, part, start)) << part << start;
        ASSERT_EQ(copy.rfind(kor(part)), modelRfind(model, part, -1)) << part;
        ASSERT_EQ(copy.find('c', start), modelFind(model, std::string("c"), start)) << start;
        ASSERT_EQ(copy.rfind('c'), modelRfind(model, std::string("c"), -1));
        ASSERT_EQ(copy.compare(kor(part)) < 0, model < part);
        ASSERT_EQ(copy, text);
    }

    Source<char> source{GetParam()};
    std::string model, lent;
    KorCString text = "";
};

TEST_P(NarrowModel, AgreesAfterEachOperation) {
    for (int i = 0; i < 3000 && !HasFatalFailure(); ++i) step(), check();
}

INSTANTIATE_TEST_SUITE_P(Seeds, NarrowModel, testing::Range(1u, 5u));

class WideModel : public testing::TestWithParam<unsigned> {
protected:
    using Text = std::u16string;

    KorString kor(const Text& s) { return KorString(s.c_str()); }

    void step() {
        const Text piece = source.text(source.below(4) ? 3 : 70);
        const std::int32_t at = source.place(model.size()), n = source.place(model.size());
        switch (source.below(10)) {
        case 0:
            text.append(kor(piece)), model += piece;
            break;
        case 1:
            text.append(u'c'), model += u'c';
            break;
        case 2:
            remove(at, n);
            break;
        case 3:
            truncate(n);
            break;
        case 4:
            replaced(at, n, piece);
            break;
        case 5:
            text = text.mid(at, n), model = modelMid(model, at, n);
            break;
        case 6:
            text.replaceAll(kor(piece), "ab"), model = modelReplaceAll<Text>(model, piece, u"ab");
            break;
        case 7:
            assign(piece, n);
            break;
        case 8:
            text = KorString(KorString(text));
            break;
        case 9:
            lent = model, text = KorString::borrow(lent.c_str());
            break;
        }
        if (model.size() > 300) text.assign("b"), model = u"b";
    }

    void remove(std::int32_t at, std::int32_t n) {
        text.remove(at, n);
        if (at >= 0 && at < static_cast<std::int32_t>(model.size()))
            model.erase(static_cast<std::size_t>(at), static_cast<std::size_t>(n));
    }

    void truncate(std::int32_t n) {
        if (text.isOwned() && n >= 0 && n < static_cast<std::int32_t>(model.size()))
            model.resize(static_cast<std::size_t>(n));
        text.truncate(n);
    }

    void replaced(std::int32_t start, std::int32_t end, const Text& with) {
        text = text.replaced(start, end, kor(with));
        const Text tail = end < 0 ? Text() : modelMid(model, end, -1);
        model = model.substr(0, static_cast<std::size_t>(std::max(start, 0))) + with + tail;
    }

    void assign(const Text& piece, std::int32_t n) {
        lent = piece;
        text.assign(lent.c_str(), n);
        model = n == 0 ? lent : lent.substr(0, static_cast<std::size_t>(n));
    }

    void check() {
        ASSERT_EQ(text.view(), model);
        const std::vector<char16_t> exact(model.c_str(), model.c_str() + model.size() + 1);
        const KorString copy = KorString::borrow(exact.data());
        const Text part = source.text(3);
        const std::int32_t start = source.place(model.size());
        ASSERT_EQ(copy.find(kor(part), start), modelFind(model, part, start)) << start;
        ASSERT_EQ(copy.rfind(kor(part), start), modelRfind(model, part, start)) << start;
        ASSERT_EQ(copy.find(u'c', start), modelFind<Text>(model, u"c", start)) << start;
        ASSERT_EQ(copy.compare(kor(part)) < 0, model < part);
        ASSERT_EQ(copy.contains(kor(part)), model.find(part) != Text::npos);
        ASSERT_EQ(std::string(copy.toNarrow()), std::string(model.begin(), model.end()));
        ASSERT_EQ(copy, text);
    }

    Source<char16_t> source{GetParam()};
    Text model, lent;
    KorString text;
};

TEST_P(WideModel, AgreesAfterEachOperation) {
    for (int i = 0; i < 3000 && !HasFatalFailure(); ++i) step(), check();
}

INSTANTIATE_TEST_SUITE_P(Seeds, WideModel, testing::Range(1u, 5u));

/// Texts of many registers and of more than one stretch of the search.
class LongText : public testing::TestWithParam<int> {};

TEST_P(LongText, FindsAPartWhereverItStands) {
    const auto at = static_cast<std::size_t>(GetParam());
    for (const std::size_t tail : {0, 1, 40}) {
        std::string narrow(at, 'a');
        narrow += "needle" + std::string(tail, 'a');
        const std::u16string wide(narrow.begin(), narrow.end());
        const std::vector<char16_t> exact(wide.c_str(), wide.c_str() + wide.size() + 1);
        const auto expected = static_cast<std::int32_t>(at);
        const KorString text = KorString::borrow(exact.data());
        EXPECT_EQ(KorCString(narrow.c_str()).find("needle"), expected);
        EXPECT_EQ(text.find("needle"), expected);
        EXPECT_EQ(text.find("needle", expected), expected);
        EXPECT_EQ(text.find("needle", expected + 1), -1);
        EXPECT_EQ(text.find(u'n'), expected);
        EXPECT_EQ(text.length(), static_cast<std::int32_t>(wide.size()));
    }
}

INSTANTIATE_TEST_SUITE_P(Places, LongText,
                         testing::Values(0, 1, 15, 16, 31, 33, 63, 64, 65, 127, 4090, 4096, 8186,
                                         8187, 8188, 8191, 8192, 8193, 20000));

TEST(LongText, SearchesAPartLongerThanAStretch) {
    const std::string part(10000, 'a');
    const KorCString text((std::string(3, 'a') + "b" + part + "c").c_str());
    EXPECT_EQ(text.find((part + "c").c_str()), 4);
    EXPECT_EQ(text.find((part + "d").c_str()), -1);
    EXPECT_EQ(KorString(text).find(KorString((part + "c").c_str())), 4);
}

} // namespace
