// SPDX-License-Identifier: Apache-2.0
// The one look-up of the chunk manager.
#include "zelbasictypes/memory/memorymanager.h"

#include "component/objects/sptr.h"
#include "platform/sync.h"
#include "zelbasictypes/memory/quietlookup.h"

#include <atomic>

namespace {

constinit std::atomic<IZelMManager*> found{nullptr};

platform::CriticalSection& managerGuard() {
    static platform::CriticalSection section;
    return section;
}

/// Made during start-up: who asks later may have no memory left.
[[maybe_unused]] const platform::CriticalSection& managerGuardMade = managerGuard();

IZelMManager* lookUp() {
    const platform::CriticalSectionLock hold(managerGuard());
    static IPtr<IZelMManager> kept;
    if (!kept) {
        kept = SPtr<IZelMManager>();
        found.store(kept.iface, std::memory_order_release);
    }
    return kept.iface;
}

} // namespace

IZelMManager* zelMemoryManager() {
    static thread_local bool looking = false;
    IZelMManager* manager = found.load(std::memory_order_acquire);
    return manager ? manager : zelLookUpQuietly(looking, lookUp);
}
