// SPDX-License-Identifier: Apache-2.0
/// @file
/// The freed blocks that each thread keeps to itself, in front of the buckets of the current pool.
///
/// What a thread frees and soon takes again stays with it and costs no lock. A store that runs full
/// or empty exchanges half its room with the bucket under the pool lock, oldest blocks first, so
/// that for one thread store and bucket together are the one stack that the bucket alone would be.
///
/// Nothing is hidden from the pool: it can withdraw all stores from its service and empty them at
/// any moment. A thread says with plain writes that it is inside its store and looks whether it is
/// in service; whoever withdraws it takes it out of service, has the processor settle the order of
/// the two on all threads, and waits until nobody is inside. The cost is on the rare side: the
/// thread itself has no fence and no locked instruction.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

class BucketMemoryPool;

class ThreadStore {
public:
    static constexpr std::uint32_t granularity = 4;
    static constexpr std::uint32_t classCount = 1024; ///< up to 4 kB, in steps of `granularity`
    static constexpr std::uint32_t smallCount = 64;   ///< of these, classes that are much in use
    static constexpr std::uint32_t smallRoom = 1024, largeRoom = 8;
    /// Blocks of a class that there is room for.
    static constexpr std::uint32_t roomOf(std::uint32_t index) {
        return index < smallCount ? smallRoom : largeRoom;
    }

    /// The calling thread's store, or null while it has none.
    static ThreadStore* own() { return own_; }

    /// These need no lock. They change nothing, and answer null or false, when the store isn't in
    /// service for `pool`, or has no such block or no room for it.
    void* take(const BucketMemoryPool* pool, std::int32_t size, unsigned& got);
    bool keep(const BucketMemoryPool* pool, std::int32_t size, void* block);
    /// The same for whatever pool the store is in service for; taking, as long as credit lasts.
    void* takeOnCredit(std::int32_t size, unsigned& got);
    bool keepForAny(std::int32_t size, void* block);

    // The rest is called under the pool lock.

    /// The calling thread's store, made when there is none and in service for `pool` from now on;
    /// null when a store can't be had. All stores that serve, serve one pool; they were withdrawn
    /// from another before, and are empty.
    static ThreadStore* enlist(BucketMemoryPool* pool);
    /// Takes all stores out of service. No thread touches its own from here on, until it enlists
    /// again. Answers the first of all stores that there are.
    static ThreadStore* withdrawAll();
    ThreadStore* next() const { return next_; }
    /// Removes all stores, which are empty and out of service. No thread uses the module any more
    /// but the calling one, which does without a store from here on.
    static void removeAll();

    std::uint32_t blockCount(std::uint32_t index) const { return counts_[index]; }
    /// The blocks of a class, the one freed last at the end.
    void** blocks(std::uint32_t index) {
        return index < smallCount ? small_[index].data() : large_[index - smallCount].data();
    }
    void setBlockCount(std::uint32_t index, std::uint32_t count) { counts_[index] = count; }
    void push(std::uint32_t index, void* block) { blocks(index)[counts_[index]++] = block; }
    void dropOldest(std::uint32_t index, std::uint32_t count);

    /// Allocations that the current pool has counted before they are made.
    std::int32_t credit() const { return credit_; }
    void setCredit(std::int32_t credit) { credit_ = credit; }

private:
    class Visit;

    void* pop(std::int32_t size, unsigned& got) {
        const std::uint32_t index = indexOf(size);
        if (index >= classCount || counts_[index] == 0) return nullptr;
        const std::uint32_t top = --counts_[index];
        got = (index + 1) * granularity;
        return blocks(index)[top];
    }
    bool put(std::int32_t size, void* block) {
        const std::uint32_t index = indexOf(size);
        if (index >= classCount || counts_[index] == roomOf(index)) return false;
        push(index, block);
        return true;
    }
    /// Sizes below 1 get an index that no store has.
    static std::uint32_t indexOf(std::int32_t size) {
        return (static_cast<std::uint32_t>(size) - 1) / granularity;
    }
    static ThreadStore* make();
    /// Of the calling thread, which ends.
    static void end(void* store);
    void leave();
    void remove();

    static constinit thread_local ThreadStore* own_;

    std::atomic<bool> busy_{false};
    std::atomic<BucketMemoryPool*> pool_{nullptr}; ///< null while out of service
    std::int32_t credit_ = 0;
    ThreadStore* next_ = nullptr;
    std::array<std::uint32_t, classCount> counts_{};
    std::array<std::array<void*, smallRoom>, smallCount> small_;
    std::array<std::array<void*, largeRoom>, classCount - smallCount> large_;
};

/// Says for as long as it lives that the thread is inside its store.
class ThreadStore::Visit {
public:
    explicit Visit(ThreadStore& store) : store_(store) {
        store_.busy_.store(true, std::memory_order_relaxed);
        // Keeps the compiler from looking first; the processor is seen to by who withdraws.
        std::atomic_signal_fence(std::memory_order_seq_cst);
        pool_ = store_.pool_.load(std::memory_order_relaxed);
    }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;
    ~Visit() { store_.busy_.store(false, std::memory_order_release); }

    /// What the store is in service for, until the end of the visit.
    const BucketMemoryPool* pool() const { return pool_; }

private:
    ThreadStore& store_;
    const BucketMemoryPool* pool_;
};

inline void* ThreadStore::take(const BucketMemoryPool* pool, std::int32_t size, unsigned& got) {
    const Visit visit(*this);
    return visit.pool() == pool ? pop(size, got) : nullptr;
}

inline void* ThreadStore::takeOnCredit(std::int32_t size, unsigned& got) {
    const Visit visit(*this);
    if (!visit.pool() || credit_ == 0) return nullptr;
    void* block = pop(size, got);
    if (block) --credit_;
    return block;
}

inline bool ThreadStore::keep(const BucketMemoryPool* pool, std::int32_t size, void* block) {
    const Visit visit(*this);
    return visit.pool() == pool && put(size, block);
}

inline bool ThreadStore::keepForAny(std::int32_t size, void* block) {
    const Visit visit(*this);
    return visit.pool() && put(size, block);
}
