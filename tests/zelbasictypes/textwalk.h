// SPDX-License-Identifier: Apache-2.0
// A walk of random operations on a string class and on the standard library's string: the
// operations that both widths have. Half of the operations meet a borrowed text; that one and what
// is handed in are without a byte to spare, so that a sanitizer sees a step outside.
#pragma once

#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace textmodel {

inline bool isNull(const KorCString& text) { return text.c_str() == nullptr; }
inline bool isNull(const KorString& text) { return text.isNull(); }

template <class Kor, class Unit> class TextWalk : public testing::TestWithParam<unsigned> {
protected:
    using Text = std::basic_string<Unit>;
    using Other = std::conditional_t<std::is_same_v<Unit, char>, char16_t, char>;

    static Kor kor(const Text& s) { return Kor(s.c_str()); }
    static std::basic_string<Other> otherWidth(const Text& s) { return {s.begin(), s.end()}; }

    // Each changes the text and the model in the same way.
    void append() {
        const Text piece = source.piece();
        text.append(kor(piece)), model += piece;
        isNull = false;
    }
    void appendUnit() { text.append(Unit('c')), model += Unit('c'); }
    void appendItself() { text.append(text), model += model; }
    void setAt() {
        if (model.empty()) return;
        const std::size_t at = placeInside();
        text.setAt(static_cast<std::int32_t>(at), Unit('X')), model[at] = Unit('X');
    }
    void replaceAll() {
        const Text from = source.text(2), to = source.below(8) ? source.text(3) : model;
        if (to == model)
            text.replaceAll(kor(from), text);
        else
            text.replaceAll(kor(from), kor(to));
        model = replacedAll(model, from, to);
    }
    void fit() {
        const std::int32_t width = place(), mode = source.below(3);
        const std::int32_t dots = source.below(2) ? source.below(5) : place();
        if (width == INT_MAX && dots == INT_MAX) return; // as many full stops, 2 GB of them
        text = text.fit(width, mode, dots), model = fitted(model, width, mode, dots);
        if (width <= std::max(dots, 0)) isNull = false;
    }
    void make() {
        const Text piece = source.piece();
        const std::int32_t n = place(piece);
        text = source.below(2) ? Kor(exactCopy(piece).data(), n)
                               : Kor(exactCopy(otherWidth(piece)).data(), n);
        model = left(piece, n);
        isNull = false;
    }
    void copyAndMove() {
        Kor copy = text, moved = std::move(copy);
        ASSERT_TRUE(textmodel::isNull(copy));
        text = Kor();
        text.swap(moved);
    }
    void borrow() {
        lend(model);
        text = Kor::borrow(lent.data()), isNull = false;
    }
    void lend(const Text& content) {
        former = std::exchange(lent, exactCopy(content));
        kept = content;
    }
    void becomeNull() { text = Kor(), model.clear(), isNull = true; }

    template <class Walk, std::size_t N> void walk(void (Walk::*const (&steps)[N])()) {
        auto& self = static_cast<Walk&>(*this);
        for (int i = 0; i < 20000 && !HasFatalFailure(); ++i) {
            if (source.below(2)) borrow();
            (self.*steps[source.below(N)])();
            if (!model.empty()) isNull = false;
            if (model.size() > 300) text.assign("b"), model = Unit('b');
            check();
        }
    }

    void check() {
        ASSERT_EQ(text.view(), model);
        ASSERT_EQ(textmodel::isNull(text), isNull);
        ASSERT_EQ(lent, exactCopy(kept)) << "a borrowed text is nobody's to change";
        const std::vector<Unit> exact = exactCopy(model);
        checkCopy(Kor::borrow(exact.data()));
    }
    /// Checks what doesn't change a text, on a copy without a byte to spare.
    virtual void checkCopy(const Kor& copy) = 0;

    std::int32_t place() { return place(model); }
    std::int32_t place(const Text& within) { return source.place(within.size()); }
    std::size_t placeInside() {
        return static_cast<std::size_t>(source.below(static_cast<int>(model.size())));
    }

    /// To look for: anything, or the rest of the text from some place on.
    Text part() {
        return source.below(4) || model.empty() ? source.text(3) : model.substr(placeInside());
    }

    Source<Unit> source{GetParam()};
    Text model, kept; ///< `kept` is what `lent` held when it was lent
    std::vector<Unit> lent = exactCopy(kept), former;
    bool isNull = true; ///< the text is null: it was made so, and nothing made it a text since
    Kor text;
};

} // namespace textmodel
