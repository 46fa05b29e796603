// SPDX-License-Identifier: Apache-2.0
// The process-wide calls on the pool, and its change from our own to the shared one.
#include "zelbasictypes/memory/currentpool.h"

#include "component/objects/countservice.h"
#include "platform/sync.h"
#include "platform/unload.h"
#include "zelbasictypes/diagnostics/outofmemory.h"
#include "zelbasictypes/memory/memoryblock.h"
#include "zelbasictypes/memory/quietlookup.h"
#include "zelbasictypes/memory/threadstore.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

constexpr std::int32_t allocationsBetweenChecks = 600;
constexpr std::int32_t greatestCredit = 200;

constinit CurrentPool currentPool;

platform::CriticalSection& poolLock() {
    alignas(platform::CriticalSection) static unsigned char room[sizeof(platform::CriticalSection)];
    static auto* const lock = new (room) platform::CriticalSection;
    return *lock;
}

/// Made during start-up: who allocates later may have no memory left.
[[maybe_unused]] const platform::CriticalSection& poolLockMade = poolLock();

/// What the module keeps goes back while its code is there: the blocks of all threads, those that
/// it gave to a shared pool, and that pool itself. Static objects give their blocks back to the
/// heap afterwards.
void leaveProcess() {
    const PoolLock hold;
    destroyBucketPool();
    ThreadStore::removeAll();
}

const platform::AtUnload leaving(leaveProcess);

BucketMemoryPool* lookUpShared() {
    void* service = nullptr;
    zelFindService(IBucketMemoryPool::interfaceName, &service);
    return zelQuery<BucketMemoryPool>(static_cast<IBucketMemoryPool*>(service));
}

/// The shared pool of the host, or null. Called without the lock, as the host may use locks of its
/// own.
BucketMemoryPool* findShared() {
    static thread_local bool looking = false;
    return zelLookUpQuietly(looking, lookUpShared);
}

/// While the pool may still change, an allocation keeps the lock, so that its pool stays alive.
[[gnu::noinline]] void* allocateUnsettled(std::int32_t size, unsigned& got) {
    bool lookNow = false;
    {
        const PoolLock hold;
        if (ThreadStore* store = ThreadStore::own()) currentPool.takeBackCredit(*store);
        lookNow = currentPool.isCheckDue() || !currentPool.pool();
    }
    BucketMemoryPool* shared = lookNow ? findShared() : nullptr;
    const PoolLock hold;
    if (shared) currentPool.settleOn(shared);
    if (!currentPool.pool()) currentPool.makeProvisional();
    void* block = currentPool.pool()->allocate(size, got);
    currentPool.countAllocation();
    if (ThreadStore* store = ThreadStore::own()) currentPool.grantCredit(*store);
    return block;
}

[[gnu::noinline]] void freeUnsettled(std::int32_t size, void* block) {
    const PoolLock hold;
    if (currentPool.pool()) {
        currentPool.pool()->free(size, block);
    } else {
        zelReleaseBlock(block);
    }
}

} // namespace

PoolLock::PoolLock() { poolLock().enter(); }

PoolLock::~PoolLock() { poolLock().leave(); }

CurrentPool& zelCurrentPool() { return currentPool; }

void CurrentPool::publish() {
    settled_.store(provisional_ ? nullptr : pool_, std::memory_order_release);
}

void CurrentPool::replace(BucketMemoryPool* next) {
    BucketMemoryPool* old = pool_;
    if (next == old) return;
    if (old) old->gather();
    if (next) next->addRef();
    pool_ = next;
    publish();
    if (old) old->release();
}

void CurrentPool::settleOn(BucketMemoryPool* shared) {
    if (pool_ && pool_ != shared) {
        if (!provisional_) return;
        pool_->handOverTo(*shared);
    }
    provisional_ = false;
    replace(shared);
    publish();
}

void CurrentPool::makeProvisional() {
    provisional_ = true;
    sinceCheck_ = 0;
    auto* pool = new (std::nothrow)
        BucketMemoryPool(BucketMemoryPool::standardGranularity, BucketMemoryPool::standardLinearMax,
                         BucketMemoryPool::standardBucketMax);
    if (!pool) zelReportOutOfMemory(sizeof *pool);
    replace(pool);
}

bool CurrentPool::isCheckDue() {
    if (!provisional_ || sinceCheck_ <= allocationsBetweenChecks) return false;
    sinceCheck_ = 0;
    return true;
}

void CurrentPool::grantCredit(ThreadStore& store) {
    takeBackCredit(store);
    if (!provisional_) {
        store.setCredit(std::numeric_limits<std::int32_t>::max());
        return;
    }
    const std::int32_t left = allocationsBetweenChecks + 1 - sinceCheck_;
    store.setCredit(std::clamp(left, 0, greatestCredit));
    sinceCheck_ += store.credit();
}

void CurrentPool::takeBackCredit(ThreadStore& store) {
    if (provisional_) sinceCheck_ -= store.credit();
    store.setCredit(0);
}

void* bucketAlloc(std::int32_t size, unsigned& got) {
    ThreadStore* store = ThreadStore::own();
    void* block = store ? store->takeOnCredit(size, got) : nullptr;
    if (block) return block;
    BucketMemoryPool* settled = currentPool.settled();
    return settled ? settled->allocate(size, got) : allocateUnsettled(size, got);
}

void bucketFree(std::int32_t size, void* block) {
    if (size == 0 || !block) return;
    ThreadStore* store = ThreadStore::own();
    if (store && store->keepForAny(size, block)) return;
    if (BucketMemoryPool* settled = currentPool.settled()) {
        settled->free(size, block);
    } else {
        freeUnsettled(size, block);
    }
}

BucketMemoryPool* currentBucketPool() {
    const PoolLock hold;
    if (!currentPool.pool()) currentPool.makeProvisional();
    return currentPool.pool();
}

bool connectSharedPool() {
    if (currentPool.settled()) return true;
    BucketMemoryPool* shared = findShared();
    if (!shared) return false;
    const PoolLock hold;
    currentPool.settleOn(shared);
    return true;
}

void destroyBucketPool() {
    const PoolLock hold;
    if (!currentPool.pool()) return;
    currentPool.pool()->clear();
    currentPool.replace(nullptr);
}
