// SPDX-License-Identifier: Apache-2.0
/// @file
/// The chunked array with elements of a type, read and written in place.
#pragma once

#include "zelbasictypes/memory/arraybase.h"

namespace ZelMM {

/// `T` is a plain value whose zero is all bits zero. `Splitter` tells the chunk and the offset of a
/// place, and the elements in a chunk. The size is always a whole number of chunks.
template <class T, class Splitter> class Array : public ArrayBase {
public:
    explicit Array(std::uint32_t size)
        : ArrayBase(size, sizeof(T), Splitter::chunkElements, Splitter::chunkElements * sizeof(T)) {
        roundUpToChunks();
    }

    /// Zero in a missing chunk and beyond the size.
    T at(std::uint32_t index) const { return index < size() ? (*this)[index] : T{}; }
    /// The same for an `index` that is known to be below the size.
    T operator[](std::uint32_t index) const {
        const T* elements = chunkAt(Splitter::chunkOf(index));
        return elements ? elements[Splitter::offsetOf(index)] : T{};
    }

    /// `index` is below the size. A zero doesn't make a missing chunk.
    void set(std::uint32_t index, T value) {
        T* elements = chunkAt(Splitter::chunkOf(index));
        if (!elements) {
            if (value == T{}) return;
            elements = chunkForWriting(Splitter::chunkOf(index));
        }
        elements[Splitter::offsetOf(index)] = value;
    }

    /// The elements of a whole chunk, or null where it is missing; `number` is below `chunkCount`.
    T* chunkAt(std::uint32_t number) { return static_cast<T*>(chunk(number)); }
    const T* chunkAt(std::uint32_t number) const { return static_cast<const T*>(chunk(number)); }
    /// The same, made with zeros where it is missing.
    T* chunkForWriting(std::uint32_t number) { return static_cast<T*>(makeChunk(number, true)); }
};

} // namespace ZelMM
