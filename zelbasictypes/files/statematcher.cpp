// SPDX-License-Identifier: Apache-2.0
// State sets of glob patterns.
#include "zelbasictypes/files/statematcher.h"

#include "zelbasictypes/memory/korrealloc.h"

#include <cstring>
#include <type_traits>

namespace zelglob {
namespace {

template <class Unit> class Matcher {
public:
    using View = std::basic_string_view<Unit>;

    Matcher(View glob, unsigned char* from, unsigned char* to)
        : pattern(glob), before(from), after(to) {}

    bool run(View text) {
        std::memset(before, 0, pattern.size() + 1);
        std::memset(after, 0, pattern.size() + 1);
        after[0] = 1;
        close();
        for (const Unit c : text) step(c);
        return after[pattern.size()];
    }

private:
    /// A star may stand for nothing.
    void close() {
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            if (after[i] && pattern[i] == '*') after[i + 1] = 1;
        }
    }
    void step(Unit c) {
        std::memcpy(before, after, pattern.size() + 1);
        std::memset(after, 0, pattern.size() + 1);
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            if (before[i]) go(i, c);
        }
        close();
    }
    void go(std::size_t i, Unit c) {
        const Unit p = pattern[i];
        if (p == '*') {
            after[i] = 1;
        } else if (p == '?' || p == c) {
            after[i + 1] = 1;
        } else if (p == '[') {
            const std::size_t end = pattern.find(Unit{']'}, i + 1);
            if (end != View::npos && isInSet(i + 1, end, c)) after[end + 1] = 1;
        }
    }
    /// Every character of the set counts for itself too, that of a range also the dash.
    bool isInSet(std::size_t from, std::size_t end, Unit c) const {
        for (std::size_t k = from; k < end; ++k) {
            const bool range = pattern[k + 1] == '-';
            if (range ? isBetween(pattern[k], c, pattern[k + 2]) : c == pattern[k]) return true;
        }
        return false;
    }
    static bool isBetween(Unit low, Unit c, Unit high) {
        using Value = std::make_unsigned_t<Unit>;
        return Value(low) <= Value(c) && Value(c) <= Value(high);
    }

    View pattern;
    unsigned char* before;
    unsigned char* after;
};

} // namespace

void BlockFreer::operator()(unsigned char* block) const { zelFreeBlock(block); }

States makeStates(std::int32_t length) {
    void* block = nullptr;
    korMalloc(&block, 1, length + 1);
    std::memset(block, 0, static_cast<std::size_t>(length) + 1);
    return States(static_cast<unsigned char*>(block));
}

template <class Unit>
bool matches(std::basic_string_view<Unit> pattern, std::basic_string_view<Unit> text,
             unsigned char* before, unsigned char* after) {
    return Matcher<Unit>(pattern, before, after).run(text);
}

template bool matches(std::string_view, std::string_view, unsigned char*, unsigned char*);
template bool matches(std::u16string_view, std::u16string_view, unsigned char*, unsigned char*);

} // namespace zelglob
