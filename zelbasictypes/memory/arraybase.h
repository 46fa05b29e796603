// SPDX-License-Identifier: Apache-2.0
/// @file
/// A large array in chunks of one size, which come from the host's chunk manager.
///
/// A chunk that was never written needs not be there: its elements read as zeros. Sizes and places
/// are counts of elements, and the rounded size stays below 2^32. Where the host has no chunk
/// manager the chunks come from the heap. A chunk that can't be had, even after the host gave
/// memory back, ends the process like any other failed allocation. An array belongs to one thread
/// at a time.
#pragma once

#include <cstdint>

class IZelMManager;

namespace ZelMM {

class ArrayBase {
public:
    /// `chunkBytes` is what is asked of the manager for each chunk, at least `chunkElements` times
    /// `elementSize`. All chunks are missing at first.
    ArrayBase(std::uint32_t size, std::uint32_t elementSize, std::uint32_t chunkElements,
              std::uint32_t chunkBytes);
    ArrayBase(const ArrayBase&) = delete;
    ArrayBase& operator=(const ArrayBase&) = delete;
    virtual ~ArrayBase();

    std::uint32_t size() const { return size_; }
    std::uint32_t elementSize() const { return elementSize_; }
    std::uint32_t chunkElements() const { return chunkElements_; }
    std::uint32_t chunkCount() const { return chunksFor(size_); }
    /// The number of chunks that so many elements fill or begin.
    std::uint32_t chunksFor(std::uint32_t elements) const;
    bool allChunksPresent() const;

    /// Makes room for `newSize` elements, rounded up to whole chunks; chunks behind them are given
    /// back. `keepTail` zeroes what becomes part of the array within its last chunk, for an array
    /// that ended inside one.
    void resize(std::uint32_t newSize, bool keepTail);
    /// Takes the first `size` elements of `other`, whose chunks must be of the same kind. Chunks
    /// that `other` lacks are given back here.
    void assign(const ArrayBase& other, std::uint32_t size);
    /// Zeroes the elements from `from`, where a chunk begins, up to but not including `to`.
    void clearRange(std::uint32_t from, std::uint32_t to);
    /// Gets every missing chunk, zeroed on request.
    void allocateAll(bool zero);

    /// Exchanges the tables of chunks and nothing else.
    void swapChunks(ArrayBase& other);

    /// Raises `size`, in elements of `elementSize` bytes, until the element `index` fits: doubled
    /// below 4 MiB, by a half below 32 MiB, by a quarter below 256 MiB, and by an eighth from there
    /// on, so that large arrays hold little in reserve.
    static void growTarget(std::uint32_t index, std::uint32_t& size, std::uint32_t elementSize);

protected:
    /// Fits the table to the size and rounds the size up to whole chunks; for the constructors of
    /// subclasses.
    void roundUpToChunks();

    /// Null for a missing one; `index` is below `chunkCount`.
    void* chunk(std::uint32_t index) const { return chunks_.items[index]; }
    /// Gets the chunk first where it is missing.
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
