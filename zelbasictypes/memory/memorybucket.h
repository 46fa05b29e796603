// SPDX-License-Identifier: Apache-2.0
/// @file
/// The freed blocks of one size class.
#pragma once

#include <cstdint>

/// A stack of freed blocks, used under the pool lock. Buckets move between pools of different
/// modules, so the order of the fields is a contract.
class MemoryBucket {
public:
    /// A freed block.
    struct Entry {
        std::int32_t size; ///< of the class, in bytes
        void* block;       ///< as handed out by the pool
    };

    /// A new, empty bucket, which lives until destroy().
    static MemoryBucket* make();
    /// Frees the blocks and the bucket itself.
    void destroy();

    /// Whether there is no block.
    bool isEmpty() const { return count == 0; }
    /// Removes the topmost block; there must be one.
    Entry pop() { return items[count--]; }
    /// Moves at most `most` blocks from the top to `to`, the topmost last. Returns their number.
    std::uint32_t popMany(void** to, std::uint32_t most);
    /// Adds a block on top.
    void push(const Entry& entry);
    /// Adds `number` blocks of one class in their order. An allocation that may fail is made before
    /// the first.
    void pushMany(std::int32_t size, void* const* blocks, std::uint32_t number);
    /// Moves the other's blocks to the top, in their order.
    void takeAll(MemoryBucket& other);
    /// Empties the bucket without freeing, once the blocks have gone elsewhere.
    void forgetAll() { count = 0; }

    /// The blocks, the topmost last.
    /// @{
    const Entry* begin() const { return items ? items + 1 : nullptr; }
    const Entry* end() const { return items ? items + 1 + count : nullptr; }
    /// @}

private:
    void reserve(std::int32_t more);

    std::int32_t capacity;
    Entry* items; ///< from 1 to `count`
    std::int32_t count;
};
