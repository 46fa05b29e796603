// SPDX-License-Identifier: Apache-2.0
// The freed blocks of one size class, the last one on top.
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
    void push(const Entry& entry);
    void takeAll(MemoryBucket& other);

private:
    std::int32_t capacity;
    Entry* items; ///< from 1 to `count`
    std::int32_t count;
};
