// SPDX-License-Identifier: Apache-2.0
// The narrow string against std::string: random operations, compared after each.
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

KorCString kor(const std::string& s) { return KorCString(s.c_str()); }

class NarrowModel : public testing::TestWithParam<unsigned> {
protected:
    // Each changes the text and the model in the same way.
    void append() {
        const std::string piece = source.piece();
        text.append(kor(piece)), model += piece;
        isNull = false;
    }
    void appendUnit() { text.append('c'), model += 'c'; }
    void appendItself() { text.append(text), model += model; }
    void replaceRange() {
        const std::int32_t at = place(), n = place();
        const std::string with = source.piece();
        text.replaceRange(at, n, kor(with));
        model = textmodel::replacedRange(model, at, n, with);
    }
    void replaceAll() {
        const std::string from = source.text(2), to = source.text(3);
        text.replaceAll(kor(from), kor(to));
        model = textmodel::replacedAll(model, from, to);
    }
    void replaceChar() {
        text.replaceChar('a', 'd');
        std::replace(model.begin(), model.end(), 'a', 'd');
    }
    void setAt() {
        if (model.empty()) return;
        const auto at = static_cast<std::size_t>(source.below(static_cast<int>(model.size())));
        text.setAt(static_cast<std::int32_t>(at), 'X'), model[at] = 'X';
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
    void fit() {
        const std::int32_t width = source.below(80), mode = source.below(3), dots = source.below(5);
        text = text.fit(width, mode, dots), model = textmodel::fitted(model, width, mode, dots);
        if (width <= dots) isNull = false;
    }
    void assign() {
        const std::string piece = source.piece();
        const std::int32_t n = place();
        text.assign(piece.c_str(), n), model = textmodel::left(piece, n);
        isNull = false;
    }
    void assignItsPart() {
        if (model.empty()) return;
        const std::int32_t n = place();
        const auto at = static_cast<std::size_t>(source.below(static_cast<int>(model.size())));
        text.assign(text.c_str() + at, n), model = textmodel::left(model.substr(at), n);
    }
    void make() {
        const std::string piece = source.piece();
        const std::int32_t n = place();
        if (source.below(2))
            text = KorCString(piece.c_str(), n);
        else
            text = KorCString(std::u16string(piece.begin(), piece.end()).c_str(), n);
        model = textmodel::left(piece, n);
        isNull = false;
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
    void copyAndMove() {
        KorCString copy = text, moved = std::move(copy);
        ASSERT_EQ(copy.c_str(), nullptr);
        text = KorCString();
        text.swap(moved);
    }
    void borrow() { lent = model, text = KorCString::borrow(lent.c_str()), isNull = false; }
    void becomeNull() { text = KorCString(), model.clear(), isNull = true; }
    void readLine() {
        std::istringstream stream(model + "\nnext");
        ASSERT_TRUE(text.readLine(stream));
        isNull = false;
    }
    void takeUtf8() { text.takeUtf8(KorString(text)), isNull = false; }

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

    void step() {
        (this->*steps[source.below(std::size(steps))])();
        if (!model.empty()) isNull = false;
        if (model.size() > 300) text.assign("b"), model = "b";
    }

    void check() {
        ASSERT_EQ(text.view(), model);
        ASSERT_EQ(text.c_str() == nullptr, isNull);
        const std::vector<char> exact = textmodel::exactCopy(model);
        const KorCString copy = KorCString::borrow(exact.data());
        const std::string part = source.text(3);
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

    std::int32_t place() { return source.place(model.size()); }

    textmodel::Source<char> source{GetParam()};
    std::string model, lent;
    bool isNull = true; ///< the text is null: it was made so, and nothing made it a text since
    KorCString text;
};

TEST_P(NarrowModel, AgreesAfterEachOperation) {
    for (int i = 0; i < 6000 && !HasFatalFailure(); ++i) step(), check();
}

INSTANTIATE_TEST_SUITE_P(Seeds, NarrowModel, testing::Range(1u, 5u));

} // namespace
