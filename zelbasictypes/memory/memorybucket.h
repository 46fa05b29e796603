// SPDX-License-Identifier: Apache-2.0
/// @file
/// The freed blocks of one size class, the last one on top.
#pragma once

#include <cstdint>

/// Used under the pool lock. Buckets move between pools of different modules, so the order of the
/// fields is a contract.
class MemoryBucket {
public:
    struct Entry {
        std::int32_t size; ///< of the class, in bytes
        void* block;
    };

    static MemoryBucket* make();
    /// Frees the blocks and the bucket itself.
    void destroy();

    bool isEmpty() const { return count == 0; }
    Entry pop() { return items[count--]; }
    /// Moves the blocks on top, at most `most` of them, to `to`, the topmost at the end. Answers
    /// their number.
    std::uint32_t popMany(void** to, std::uint32_t most);
    void push(const Entry& entry);
    /// Pushes so many blocks of one class in their order; what may fail comes before the first.
    void pushMany(std::int32_t size, void* const* blocks, std::uint32_t number);
    /// Puts the other's blocks on top, in their order.
    void takeAll(MemoryBucket& other);
    /// For when the blocks have gone elsewhere.
    void forgetAll() { count = 0; }

    const Entry* begin() const { return items ? items + 1 : nullptr; }
    const Entry* end() const { return items ? items + 1 + count : nullptr; }

private:
    void reserve(std::int32_t more);

    std::int32_t capacity;
    Entry* items; ///< from 1 to `count`
    std::int32_t count;
};
