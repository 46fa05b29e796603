// SPDX-License-Identifier: Apache-2.0
// The narrow string against std::string: random operations, compared after each.
#include "tests/zelbasictypes/textwalk.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

class NarrowModel : public textmodel::TextWalk<KorCString, char> {
protected:
    void replaceRange() {
        const std::int32_t at = place(), n = place();
        const std::string with = source.below(8) ? source.piece() : model;
        if (with == model)
            text.replaceRange(at, n, text);
        else
            text.replaceRange(at, n, kor(with));
        model = textmodel::replacedRange(model, at, n, with);
    }
    void replaceChar() {
        text.replaceChar('a', 'd');
        std::replace(model.begin(), model.end(), 'a', 'd');
    }
    void reverse() { text.reverse(), std::reverse(model.begin(), model.end()); }
    void turnCase() {
        if (source.below(2))
            text.toLower(), model = textmodel::turnedCase(model, 'A');
        else
            text.toUpper(), model = textmodel::turnedCase(model, 'a');
    }
    void trim() { text = text.trim(), model = textmodel::trimmed(model); }
    void simplify() {
        text = text.simplify('_'), model = textmodel::simplified(model, '_');
        isNull = false;
    }
    void assign() {
        const std::string piece = source.piece();
        const std::int32_t n = place(piece);
        text.assign(textmodel::exactCopy(piece).data(), n), model = textmodel::left(piece, n);
        isNull = false;
    }
    void assignItsPart() {
        if (model.empty()) return;
        const std::int32_t n = place();
        const std::size_t at = placeInside();
        text.assign(text.c_str() + at, n), model = textmodel::left(model.substr(at), n);
    }
    void concat() {
        const std::string a = source.piece(), b = source.piece();
        const char* const parts[] = {a.c_str(), "-", b.c_str(), nullptr};
        if (source.below(2))
            text = KorCString::concat(text, kor(a), kor(b)), model += a + b;
        else
            text = KorCString::concat(text, KorCString::concat(parts)), model += a + "-" + b;
        isNull = false;
    }
    void concatNumber() {
        const std::int32_t number = place();
        text = KorCString::concat(text, number), model += std::to_string(number);
        isNull = false;
    }
    void readLine() {
        std::istringstream stream(model + "\nnext");
        ASSERT_TRUE(text.readLine(stream));
        isNull = false;
    }
    void takeUtf8() {
        KorString wide(text);
        if (source.below(2)) wide.toUtf8(), wide.append(u'c'), model += 'c'; // the form is outdated
        text.takeUtf8(wide), isNull = false;
    }

    using Step = void (NarrowModel::*)();
    static constexpr Step steps[] = {
        &NarrowModel::append,       &NarrowModel::appendUnit,   &NarrowModel::appendItself,
        &NarrowModel::replaceRange, &NarrowModel::replaceRange, &NarrowModel::replaceAll,
        &NarrowModel::replaceChar,  &NarrowModel::setAt,        &NarrowModel::reverse,
        &NarrowModel::turnCase,     &NarrowModel::trim,         &NarrowModel::simplify,
        &NarrowModel::fit,          &NarrowModel::assign,       &NarrowModel::assignItsPart,
        &NarrowModel::make,         &NarrowModel::concat,       &NarrowModel::concatNumber,
        &NarrowModel::copyAndMove,  &NarrowModel::borrow,       &NarrowModel::becomeNull,
        &NarrowModel::readLine,     &NarrowModel::takeUtf8};

    void checkCopy(const KorCString& copy) override {
        const std::string part = this->part();
        const std::int32_t start = std::max(place(), 0);
        ASSERT_EQ(copy.find(kor(part), start), textmodel::find(model, part, start)) << part;
        ASSERT_EQ(copy.find('c', start), textmodel::find<std::string>(model, "c", start));
        ASSERT_EQ(copy.rfind(kor(part)), textmodel::rfind(model, part, -1)) << part;
        ASSERT_EQ(copy.rfind('c'), textmodel::rfind<std::string>(model, "c", -1));
        const int order = model.compare(part);
        ASSERT_EQ(copy.compare(kor(part)), (order > 0) - (order < 0)) << part;
        ASSERT_EQ(copy == kor(part), model == part);
        ASSERT_EQ(copy == text, !isNull);
        ASSERT_EQ(copy.hash() == text.hash(), !isNull);
    }
};

TEST_P(NarrowModel, AgreesAfterEachOperation) { walk(steps); }

INSTANTIATE_TEST_SUITE_P(Seeds, NarrowModel, testing::Range(1u, 5u));

} // namespace
