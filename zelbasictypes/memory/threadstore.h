// SPDX-License-Identifier: Apache-2.0
/// @file
/// The freed blocks that each thread keeps for itself, in front of the buckets of the current pool.
///
/// What a thread frees and soon allocates again stays with the thread and costs no lock. A store
/// that becomes full or empty exchanges half of its capacity with the bucket under the pool lock,
/// oldest blocks first. For a single thread, store and bucket together therefore behave like the
/// one stack that the bucket alone would be.
///
/// Nothing is hidden from the pool: it can withdraw all stores and empty them at any moment. A
/// thread announces with plain writes that it is inside its store and then checks whether the store
/// is in service. A withdrawing thread takes the stores out of service, has the processor order
/// this on all threads, and waits until nobody is inside. So the rare side bears the cost: the
/// frequent side has no fence and no locked instruction.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

class BucketMemoryPool;

/// The store of one thread. Which calls need the lock is said at each group.
class ThreadStore {
public:
    /// The step of the size classes, in bytes.
    static constexpr std::uint32_t granularity = 4;
    static constexpr std::uint32_t classCount = 1024; ///< up to 4 kB, in steps of `granularity`
    static constexpr std::uint32_t smallCount = 64;   ///< of these, classes that are much in use
    /// The number of blocks that a class has room for, depending on how much it is used.
    /// @{
    static constexpr std::uint32_t smallRoom = 1024, largeRoom = 8;
    /// @}
    /// The room of one class.
    static constexpr std::uint32_t roomOf(std::uint32_t index) {
        return index < smallCount ? smallRoom : largeRoom;
    }

    /// The calling thread's store, or null.
    static ThreadStore* own() { return own_; }

    /// Takes or keeps a block, without a lock. Null or false, with nothing changed, when the store
    /// isn't in service for `pool`, has no block of that size, or has no room for it.
    /// @{
    void* take(const BucketMemoryPool* pool, std::int32_t size, unsigned& got);
    bool keep(const BucketMemoryPool* pool, std::int32_t size, void* block);
    /// @}
    /// The same for whichever pool the store serves. Taking works only while credit lasts.
    /// @{
    void* takeOnCredit(std::int32_t size, unsigned& got);
    bool keepForAny(std::int32_t size, void* block);
    /// @}

    // The rest is called under the pool lock.

    /// The calling thread's store, made when there is none, now in service for `pool`; null when no
    /// store can be had. All stores in service serve one pool: they have been withdrawn from any
    /// other before, and are empty. Called with the pool lock held, as everything that follows.
    static ThreadStore* enlist(BucketMemoryPool* pool);
    /// Takes all stores out of service. From here on no thread touches its own until it enlists
    /// again. Returns the first of all stores.
    static ThreadStore* withdrawAll();
    /// The next in the list of all stores.
    ThreadStore* next() const { return next_; }
    /// Removes all stores, which must be empty and out of service. No other thread may use the
    /// module any more, and the calling thread has no store from here on.
    static void removeAll();

    /// The number of blocks of a class.
    std::uint32_t blockCount(std::uint32_t index) const { return counts_[index]; }
    /// The blocks of a class, the one freed last at the end.
    void** blocks(std::uint32_t index) {
        return index < smallCount ? small_[index].data() : large_[index - smallCount].data();
    }
    /// Change the blocks of a class: cut or extend the list, add one, or remove the `count` oldest.
    /// @{
    void setBlockCount(std::uint32_t index, std::uint32_t count) { counts_[index] = count; }
    void push(std::uint32_t index, void* block) { blocks(index)[counts_[index]++] = block; }
    void dropOldest(std::uint32_t index, std::uint32_t count);
    /// @}

    /// The allocations that the current pool has counted in advance.
    /// @{
    std::int32_t credit() const { return credit_; }
    void setCredit(std::int32_t credit) { credit_ = credit; }
    /// @}

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

/// Marks, while it lives, that the thread is inside its store.
class ThreadStore::Visit {
public:
    /// Announces the visit.
    explicit Visit(ThreadStore& store) : store_(store) {
        store_.busy_.store(true, std::memory_order_relaxed);
        // Keeps the compiler from reordering; the withdrawing thread issues the barrier for
        // everyone.
        std::atomic_signal_fence(std::memory_order_seq_cst);
        pool_ = store_.pool_.load(std::memory_order_relaxed);
    }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;
    ~Visit() { store_.busy_.store(false, std::memory_order_release); }

    /// The pool that the store is in service for, valid until the end of the visit.
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
