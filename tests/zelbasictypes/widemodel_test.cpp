// SPDX-License-Identifier: Apache-2.0
// The wide string, without a host, against std::u16string: random operations, compared after each.
#include "tests/zelbasictypes/textwalk.h"

#include <gtest/gtest.h>

namespace {

class WideModel : public textmodel::TextWalk<KorString, char16_t> {
protected:
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
        const Text with = source.below(8) ? source.piece() : model;
        text = text.replaced(start, end, with == model ? text : kor(with));
        model = textmodel::replaced(model, start, end, with);
        isNull = false;
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
    void assign() {
        lend(source.piece());
        const std::int32_t n = place(kept);
        if (source.below(2)) // with n of 0 the whole is borrowed
            text.assign(lent.data(), n), model = n == 0 ? kept : textmodel::left(kept, n);
        else
            text.assign(textmodel::exactCopy(otherWidth(kept)).data(), n),
                model = textmodel::left(kept, n);
        isNull = false;
    }
    void assignItsPart() {
        if (model.empty()) return;
        const std::int32_t n = std::max(place(), 1);
        const std::size_t at = placeInside();
        text.assign(text.c_str() + at, n), model = textmodel::left(model.substr(at), n);
    }
    /// The wide text is borrowed or our own, its narrow form is borrowed: a change must forget it.
    void borrowBoth() {
        borrow();
        lentNarrow = otherWidth(kept);
        text = KorString::borrow(lent.data(), lentNarrow.c_str());
        if (source.below(2)) text.append("");
    }
    void swapText() {
        const Text piece = source.piece();
        KorString other = kor(piece);
        text.toNarrow(), text.swapText(other);
        ASSERT_EQ(other.view(), model);
        ASSERT_EQ(std::string(other.toNarrow()), otherWidth(model));
        model = piece, isNull = false;
    }
    void copyInto() {
        KorString other = kor(source.piece());
        other.toUtf8(), other = text;
        text = other;
    }
    void throughUtf8() { text = KorString::fromUtf8(text.toUtf8()), isNull = false; }

    using Step = void (WideModel::*)();
    static constexpr Step steps[] = {
        &WideModel::append,      &WideModel::appendUnit,  &WideModel::appendItself,
        &WideModel::setAt,       &WideModel::remove,      &WideModel::remove,
        &WideModel::truncate,    &WideModel::replaced,    &WideModel::replaced,
        &WideModel::replaceAll,  &WideModel::substitute,  &WideModel::mid,
        &WideModel::leftOrFrom,  &WideModel::turnCase,    &WideModel::stripSpace,
        &WideModel::fit,         &WideModel::assign,      &WideModel::assignItsPart,
        &WideModel::make,        &WideModel::copyAndMove, &WideModel::swapText,
        &WideModel::copyInto,    &WideModel::borrow,      &WideModel::becomeNull,
        &WideModel::throughUtf8, &WideModel::borrowBoth};

    void checkCopy(const KorString& copy) override {
        ASSERT_EQ(copy, text);
        if (source.below(2)) {
            ASSERT_EQ(std::string(text.toNarrow()), otherWidth(model));
        }
        ASSERT_EQ(copy.hash(), text.hash());
        ASSERT_EQ(std::string(copy.toNarrow()), otherWidth(model));
        checkSearches(copy, part(), place());
        checkOrder(copy, part(), source.below(2) ? source.below(5) : place());
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
        ASSERT_EQ(copy == otherWidth(other).c_str(), model == other);
        ASSERT_EQ(copy < kor(other), model < other);
        const std::size_t count = n < 0 ? other.size() : static_cast<std::size_t>(n);
        ASSERT_EQ(copy.startsWith(copy, n), n < 0 || model.size() >= count);
        ASSERT_EQ(copy.startsWith(kor(other), n),
                  std::min(model.size(), other.size()) >= count &&
                      model.substr(0, count) == other.substr(0, count));
    }

    std::string lentNarrow;
};

TEST_P(WideModel, AgreesAfterEachOperation) { walk(steps); }

INSTANTIATE_TEST_SUITE_P(Seeds, WideModel, testing::Range(1u, 5u));

} // namespace
