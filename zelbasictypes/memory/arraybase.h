// SPDX-License-Identifier: Apache-2.0
/// @file
/// A large array in chunks of one size, which come from the host's chunk manager.
///
/// A chunk that was never written may be missing: its elements read as zeros. Sizes and indices
/// count elements, and the rounded size stays below 2^32. Without a chunk manager of the host,
/// chunks come from the heap. When a chunk can't be had, even after the host has given memory back,
/// the process ends as for any failed allocation. One thread at a time may use an array.
#pragma once

#include <cstdint>

class IZelMManager;

namespace ZelMM {

/// The array without the type of its elements.
class ArrayBase {
public:
    /// `chunkBytes` is requested for each chunk; it is at least `chunkElements` times
    /// `elementSize`. All chunks are missing at first.
    ArrayBase(std::uint32_t size, std::uint32_t elementSize, std::uint32_t chunkElements,
              std::uint32_t chunkBytes);
    ArrayBase(const ArrayBase&) = delete;
    ArrayBase& operator=(const ArrayBase&) = delete;
    virtual ~ArrayBase();

    /// The number of elements, the bytes of an element, the elements of a chunk, and the number of
    /// chunks that the elements fill or begin.
    /// @{
    std::uint32_t size() const { return size_; }
    std::uint32_t elementSize() const { return elementSize_; }
    std::uint32_t chunkElements() const { return chunkElements_; }
    std::uint32_t chunkCount() const { return chunksFor(size_); }
    /// @}
    /// The number of chunks that this many elements fill or begin.
    std::uint32_t chunksFor(std::uint32_t elements) const;
    /// Whether no chunk is missing.
    bool allChunksPresent() const;

    /// Makes room for `newSize` elements, rounded up to whole chunks; chunks beyond are given back.
    /// `keepTail` zeroes the elements that join the array within its last chunk, for an array that
    /// ended inside a chunk.
    void resize(std::uint32_t newSize, bool keepTail);
    /// Takes the first `size` elements of `other`, whose chunks must be of the same kind. Chunks
    /// that `other` lacks are given back.
    void assign(const ArrayBase& other, std::uint32_t size);
    /// Zeroes the elements from `from`, where a chunk must begin, up to but not including `to`.
    void clearRange(std::uint32_t from, std::uint32_t to);
    /// Creates every missing chunk, with zeros on request.
    void allocateAll(bool zero);

    /// Exchanges only the tables of chunks.
    void swapChunks(ArrayBase& other);

    /// Raises `size`, in elements of `elementSize` bytes, until the element `index` fits. It is
    /// doubled below 4 MiB, then raised by a half up to 32 MiB, by a quarter up to 256 MiB, and by
    /// an eighth beyond that, so that large arrays keep little in reserve.
    static void growTarget(std::uint32_t index, std::uint32_t& size, std::uint32_t elementSize);

protected:
    /// Fits the table to the size and rounds the size up to whole chunks. Constructors of
    /// subclasses call it.
    void roundUpToChunks();

    /// The chunk, null when it is missing; `index` must be below chunkCount().
    void* chunk(std::uint32_t index) const { return chunks_.items[index]; }
    /// The chunk, created when it is missing.
    void* makeChunk(std::uint32_t index, bool zero);

private:
    struct Table {
        void** items = nullptr;
        std::uint32_t used = 0;
        std::uint32_t capacity = 0;
    };

    void* newChunk(bool zero) const;
    void freeChunk(std::uint32_t index);
    void setTable(std::uint32_t count);
    void reserveTable(std::uint32_t capacity);

    IZelMManager* manager_; ///< borrowed; null for chunks from the heap
    std::uint32_t size_;
    std::uint32_t elementSize_;
    std::uint32_t chunkElements_;
    std::uint32_t chunkBytes_;
    Table chunks_;
};

} // namespace ZelMM
