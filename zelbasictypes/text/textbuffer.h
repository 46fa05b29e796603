// SPDX-License-Identifier: Apache-2.0
/// @file
/// The terminated buffer under both string classes: a borrowed text or a block of the string pool.
#pragma once

#include "zelbasictypes/memory/bucketmemorypool.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace zeltext {

/// A plain value; copying it copies no text, and its holder decides when to release it.
template <class Unit> struct Buffer {
    /// A terminated text, or null.
    Unit* data = nullptr;
    /// The size of the pool's block in bytes. 0 marks a borrowed text, which is never written to.
    std::int32_t capacity = 0;

    /// The same value. It is copied field by field: reading as one register what was just written
    /// as two would wait for both to reach the cache.
    Buffer alias() const { return {data, capacity}; }
    /// Whether there is a block to release.
    bool isOwned() const { return capacity > 0; }
    /// Whether there is a text that lives elsewhere.
    bool isBorrowed() const { return data && capacity == 0; }
    /// Gives an owned block back to the pool and leaves the buffer null.
    void release() {
        if (capacity > 0) bucketFree(capacity, data);
        *this = Buffer();
    }
    /// True when an owned block holds `length` units and their terminator.
    bool fits(std::int64_t length) const {
        return (length + 1) * static_cast<std::int64_t>(sizeof(Unit)) <= capacity;
    }
};

/// The longest text, in units, whose buffer a signed 32-bit size can name.
template <class Unit>
inline constexpr std::int64_t longestText = INT32_MAX / static_cast<std::int32_t>(sizeof(Unit)) - 1;

/// A new block for `length` units, terminated at both ends of the room. A text too long for one
/// buffer raises an assertion and gives a null buffer.
template <class Unit> Buffer<Unit> makeRoom(std::int64_t length);

/// A new block of exact size with the pieces one after the other, or null as of makeRoom.
template <class Unit>
Buffer<Unit> compose(const std::basic_string_view<Unit>* pieces, std::size_t count);
/// The same for pieces written out.
template <class Unit>
Buffer<Unit> compose(std::initializer_list<std::basic_string_view<Unit>> pieces) {
    return compose(pieces.begin(), pieces.size());
}

/// Makes `buffer` the text `piece`, in the block at hand when that is owned and large enough.
/// `piece` may lie inside the buffer.
template <class Unit> void store(Buffer<Unit>& buffer, std::basic_string_view<Unit> piece);

/// Adds `piece` at the end of the text of `length` units: in place when an owned block has the
/// room, else in a new one of exact size. `piece` may lie inside the buffer.
template <class Unit>
void extend(Buffer<Unit>& buffer, std::size_t length, std::basic_string_view<Unit> piece);

/// Instantiated in the library.
/// @{
extern template Buffer<char> makeRoom(std::int64_t);
extern template Buffer<char16_t> makeRoom(std::int64_t);
extern template Buffer<char> compose(const std::string_view*, std::size_t);
extern template Buffer<char16_t> compose(const std::u16string_view*, std::size_t);
extern template void store(Buffer<char>&, std::string_view);
extern template void store(Buffer<char16_t>&, std::u16string_view);
extern template void extend(Buffer<char>&, std::size_t, std::string_view);
extern template void extend(Buffer<char16_t>&, std::size_t, std::u16string_view);
/// @}

} // namespace zeltext
