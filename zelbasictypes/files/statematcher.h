// SPDX-License-Identifier: Apache-2.0
/// @file
/// Matches glob patterns, for both widths of text.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace zelglob {

/// Gives a set's memory back.
struct BlockFreer {
    /// Frees `block`.
    void operator()(unsigned char* block) const;
};
/// A set of positions in a pattern, one byte for each.
using States = std::unique_ptr<unsigned char[], BlockFreer>;

/// An empty set for a pattern of `length` characters; the end of the pattern is a position too.
States makeStates(std::int32_t length);

/// Matches all of `text`. The set of all positions that the pattern can have reached is carried
/// from character to character, so that nothing is tried twice. `before` and `after` are sets of
/// makeStates().
template <class Unit>
bool matches(std::basic_string_view<Unit> pattern, std::basic_string_view<Unit> text,
             unsigned char* before, unsigned char* after);

/// Instantiated in the library.
/// @{
extern template bool matches(std::string_view, std::string_view, unsigned char*, unsigned char*);
extern template bool matches(std::u16string_view, std::u16string_view, unsigned char*,
                             unsigned char*);
/// @}

} // namespace zelglob
