// SPDX-License-Identifier: Apache-2.0
/// @file
/// A chunked array with typed elements, read and written in place.
#pragma once

#include "zelbasictypes/memory/arraybase.h"

namespace ZelMM {

/// An array of `T`, a plain value whose zero is all bits zero. `Splitter` maps an index to a chunk
/// and an offset, and names the number of elements in a chunk. The size is always a whole number of
/// chunks.
template <class T, class Splitter> class Array : public ArrayBase {
public:
    /// `size` is in elements; all of them are zero.
    explicit Array(std::uint32_t size)
        : ArrayBase(size, sizeof(T), Splitter::chunkElements, Splitter::chunkElements * sizeof(T)) {
        roundUpToChunks();
    }

    /// The element; zero in a missing chunk and beyond the size.
    T at(std::uint32_t index) const { return index < size() ? (*this)[index] : T{}; }
    /// The same for an `index` known to be below the size.
    T operator[](std::uint32_t index) const {
        const T* elements = chunkAt(Splitter::chunkOf(index));
        return elements ? elements[Splitter::offsetOf(index)] : T{};
    }

    /// Writes the element at an `index` below the size. Writing a zero doesn't create a missing
    /// chunk.
    void set(std::uint32_t index, T value) {
        T* elements = chunkAt(Splitter::chunkOf(index));
        if (!elements) {
            if (value == T{}) return;
            elements = chunkForWriting(Splitter::chunkOf(index));
        }
        elements[Splitter::offsetOf(index)] = value;
    }

    /// The elements of a whole chunk, or null when it is missing. `number` must be below
    /// chunkCount().
    /// @{
    T* chunkAt(std::uint32_t number) { return static_cast<T*>(chunk(number)); }
    const T* chunkAt(std::uint32_t number) const { return static_cast<const T*>(chunk(number)); }
    /// @}
    /// The same; a missing chunk is created with zeros.
    T* chunkForWriting(std::uint32_t number) { return static_cast<T*>(makeChunk(number, true)); }
};

} // namespace ZelMM
