// SPDX-License-Identifier: Apache-2.0
// The wide string, without a host, against std::u16string: random operations, compared after each.
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

namespace {

using Text = std::u16string;

KorString kor(const Text& s) { return KorString(s.c_str()); }
std::string narrow(const Text& s) { return std::string(s.begin(), s.end()); }

class WideModel : public testing::TestWithParam<unsigned> {
protected:
    // Each changes the text and the model in the same way.
    void append() {
        const Text piece = source.piece();
        text.append(kor(piece)), model += piece;
        isNull = false;
    }
    void appendUnit() { text.append(u'c'), model += u'c'; }
    void appendItself() { text.append(text), model += model; }
    void setAt() {
        if (model.empty()) return;
        const auto at = static_cast<std::size_t>(source.below(static_cast<int>(model.size())));
        text.setAt(static_cast<std::int32_t>(at), u'X'), model[at] = u'X';
    }
    void remove() {
        const std::int32_t at = place(), n = place();
        text.remove(at, n), model = textmodel::replacedRange(model, at, n, Text());
    }
    void truncate() {
        const std::int32_t n = place();
        if (text.isOwned() && n >= 0) model = textmodel::left(model, n);
        text.truncate(n);
    }
    void replaced() {
        const std::int32_t start = place(), end = place();
        const Text with = source.piece();
        text = text.replaced(start, end, kor(with));
        model = textmodel::replaced(model, start, end, with);
        isNull = false;
    }
    void replaceAll() {
        const Text from = source.text(2), to = source.text(3);
        text.replaceAll(kor(from), kor(to)), model = textmodel::replacedAll(model, from, to);
    }
    void substitute() {
        const KorString argument = kor(source.text(5));
        const KorString* const args[] = {&argument};
        text.append("%1"), text.substitute(args), model += argument.view();
        isNull = false;
    }
    void mid() {
        const std::int32_t at = place(), n = place();
        text = text.mid(at, n), model = textmodel::mid(model, at, n);
        isNull = true;
    }
    void leftOrFrom() {
        const std::int32_t at = place();
        if (source.below(2))
            text = text.left(at), model = textmodel::left(model, at);
        else
            text = text.from(at), model = textmodel::mid(model, at, -1);
        isNull = true;
    }
    void turnCase() {
        if (source.below(2))
            text = text.toLower(), model = textmodel::turnedCase(model, 'A');
        else
            text = text.toUpper(), model = textmodel::turnedCase(model, 'a');
    }
    void stripSpace() { text = text.stripSpace(), std::erase(model, u' '); }
    void fit() {
        const std::int32_t width = source.below(80), mode = source.below(3), dots = source.below(5);
        text = text.fit(width, mode, dots), model = textmodel::fitted(model, width, mode, dots);
        if (width <= dots) isNull = false;
    }
    void assign() {
        lent = source.piece();
        const std::int32_t n = place();
        if (source.below(2)) // with n of 0 the whole is borrowed
            text.assign(lent.c_str(), n), model = n == 0 ? lent : textmodel::left(lent, n);
        else
            text.assign(narrow(lent).c_str(), n), model = textmodel::left(lent, n);
        isNull = false;
    }
    void assignItsPart() {
        if (model.empty()) return;
        const std::int32_t n = std::max(place(), 1);
        const auto at = static_cast<std::size_t>(source.below(static_cast<int>(model.size())));
        text.assign(text.c_str() + at, n), model = textmodel::left(model.substr(at), n);
    }
    void make() {
        const Text piece = source.piece();
        const std::int32_t n = place();
        text = source.below(2) ? KorString(piece.c_str(), n) : KorString(narrow(piece).c_str(), n);
        model = textmodel::left(piece, n);
        isNull = false;
    }
    void copyAndMove() {
        KorString copy = text, moved = std::move(copy);
        ASSERT_TRUE(copy.isNull());
        text = KorString();
        text.swap(moved);
    }
    void swapText() {
        const Text piece = source.piece();
        KorString other = kor(piece);
        text.toNarrow(), text.swapText(other);
        ASSERT_EQ(other.view(), model);
        model = piece, isNull = false;
    }
    void copyInto() {
        KorString other = kor(source.piece());
        other.toUtf8(), other = text;
        text = other;
    }
    void borrow() { lent = model, text = KorString::borrow(lent.c_str()), isNull = false; }
    void becomeNull() { text = KorString(), model.clear(), isNull = true; }
    void throughUtf8() { text = KorString::fromUtf8(text.toUtf8()), isNull = false; }

    using Step = void (WideModel::*)();
    static constexpr Step steps[] = {
        &WideModel::append,     &WideModel::appendUnit,  &WideModel::appendItself,
        &WideModel::setAt,      &WideModel::remove,      &WideModel::remove,
        &WideModel::truncate,   &WideModel::replaced,    &WideModel::replaced,
        &WideModel::replaceAll, &WideModel::substitute,  &WideModel::mid,
        &WideModel::leftOrFrom, &WideModel::turnCase,    &WideModel::stripSpace,
        &WideModel::fit,        &WideModel::assign,      &WideModel::assignItsPart,
        &WideModel::make,       &WideModel::copyAndMove, &WideModel::swapText,
        &WideModel::copyInto,   &WideModel::borrow,      &WideModel::becomeNull,
        &WideModel::throughUtf8};

    void step() {
        (this->*steps[source.below(std::size(steps))])();
        if (!model.empty()) isNull = false;
        if (model.size() > 300) text.assign("b"), model = u"b";
    }

    void check() {
        ASSERT_EQ(text.view(), model);
        ASSERT_EQ(text.isNull(), isNull);
        const std::vector<char16_t> exact = textmodel::exactCopy(model);
        const KorString copy = KorString::borrow(exact.data());
        ASSERT_EQ(copy, text);
        ASSERT_EQ(copy.hash(), text.hash());
        ASSERT_EQ(std::string(copy.toNarrow()), narrow(model));
        checkSearches(copy, source.text(3), place());
        checkOrder(copy, source.text(3), source.below(5));
    }

    void checkSearches(const KorString& copy, const Text& part, std::int32_t at) {
        ASSERT_EQ(copy.find(kor(part), at), textmodel::find(model, part, at)) << at;
        ASSERT_EQ(copy.rfind(kor(part), at), textmodel::rfind(model, part, at)) << at;
        ASSERT_EQ(copy.find(u'c', at), textmodel::find<Text>(model, u"c", at)) << at;
        ASSERT_EQ(copy.rfind(u'c', at), textmodel::rfind<Text>(model, u"c", at)) << at;
        ASSERT_EQ(copy.contains(kor(part)), model.find(part) != Text::npos);
        const Text folded = textmodel::turnedCase(model, 'A');
        ASSERT_EQ(copy.contains(kor(textmodel::turnedCase(part, 'a')), false),
                  folded.find(textmodel::turnedCase(part, 'A')) != Text::npos);
        const bool inside = at >= 0 && static_cast<std::size_t>(at) < model.size();
        ASSERT_EQ(copy.isSpaceAt(at), inside && model[static_cast<std::size_t>(at)] == u' ');
        ASSERT_FALSE(copy.isDigitAt(at));
    }

    void checkOrder(const KorString& copy, const Text& other, int n) {
        const int order = model.compare(other);
        ASSERT_EQ(copy.compare(kor(other)), (order > 0) - (order < 0));
        ASSERT_EQ(copy == kor(other), model == other);
        ASSERT_EQ(copy == narrow(other).c_str(), model == other);
        ASSERT_EQ(copy < kor(other), model < other);
        const auto count = static_cast<std::size_t>(n);
        ASSERT_EQ(copy.startsWith(kor(other), n),
                  std::min(model.size(), other.size()) >= count &&
                      model.substr(0, count) == other.substr(0, count));
    }

    std::int32_t place() { return source.place(model.size()); }

    textmodel::Source<char16_t> source{GetParam()};
    Text model, lent;
    bool isNull = true; ///< the text is null: it was made so, and nothing made it a text since
    KorString text;
};

TEST_P(WideModel, AgreesAfterEachOperation) {
    for (int i = 0; i < 6000 && !HasFatalFailure(); ++i) step(), check();
}

INSTANTIATE_TEST_SUITE_P(Seeds, WideModel, testing::Range(1u, 5u));

} // namespace
