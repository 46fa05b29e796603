// SPDX-License-Identifier: Apache-2.0
// Blocks of the string pool, filled from pieces.
#include "zelbasictypes/text/textbuffer.h"

#include "zelbasictypes/diagnostics/zelassert.h"

#include <cstring>

namespace zeltext {

namespace {

template <class Unit> void put(Unit* to, std::basic_string_view<Unit> piece) {
    if (!piece.empty()) std::memmove(to, piece.data(), piece.size() * sizeof(Unit));
}

template <class Unit> void replaceBlock(Buffer<Unit>& buffer, Buffer<Unit> with) {
    buffer.release();
    buffer = with;
}

} // namespace

template <class Unit> Buffer<Unit> makeRoom(std::int64_t length) {
    Buffer<Unit> room;
    if (!ZEL_ASSERT(length <= longestText<Unit>)) return room;
    unsigned got = 0;
    const auto bytes = static_cast<std::int32_t>((length + 1) * static_cast<int>(sizeof(Unit)));
    room.data = static_cast<Unit*>(bucketAlloc(bytes, got));
    room.capacity = static_cast<std::int32_t>(got);
    room.data[0] = room.data[length] = 0;
    return room;
}

template <class Unit>
Buffer<Unit> compose(const std::basic_string_view<Unit>* pieces, std::size_t count) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < count; ++i) length += pieces[i].size();
    Buffer<Unit> result = makeRoom<Unit>(static_cast<std::int64_t>(length));
    Unit* to = result.data;
    for (std::size_t i = 0; to && i < count; to += pieces[i++].size()) put(to, pieces[i]);
    return result;
}

template <class Unit> void store(Buffer<Unit>& buffer, std::basic_string_view<Unit> piece) {
    if (!buffer.fits(static_cast<std::int64_t>(piece.size()))) {
        replaceBlock(buffer, compose({piece}));
        return;
    }
    put(buffer.data, piece);
    buffer.data[piece.size()] = 0;
}

template <class Unit>
void extend(Buffer<Unit>& buffer, std::size_t length, std::basic_string_view<Unit> piece) {
    const std::size_t total = length + piece.size();
    if (!buffer.fits(static_cast<std::int64_t>(total))) {
        replaceBlock(buffer, compose({{buffer.data, length}, piece}));
        return;
    }
    put(buffer.data + length, piece);
    buffer.data[total] = 0;
}

template Buffer<char> makeRoom(std::int64_t);
template Buffer<char16_t> makeRoom(std::int64_t);
template Buffer<char> compose(const std::string_view*, std::size_t);
template Buffer<char16_t> compose(const std::u16string_view*, std::size_t);
template void store(Buffer<char>&, std::string_view);
template void store(Buffer<char16_t>&, std::u16string_view);
template void extend(Buffer<char>&, std::size_t, std::string_view);
template void extend(Buffer<char16_t>&, std::size_t, std::u16string_view);

} // namespace zeltext
