// SPDX-License-Identifier: Apache-2.0
// The one look-up of the chunk manager.
#include "zelbasictypes/memory/memorymanager.h"

#include "component/objects/sptr.h"
#include "platform/sync.h"

#include <atomic>

namespace {

constinit std::atomic<IZelMManager*> found{nullptr};

IZelMManager* lookUp() {
    static platform::CriticalSection guard;
    const platform::CriticalSectionLock hold(guard);
    static IPtr<IZelMManager> kept;
    if (!kept) {
        kept = SPtr<IZelMManager>();
        found.store(kept.iface, std::memory_order_release);
    }
    return kept.iface;
}

} // namespace

IZelMManager* zelMemoryManager() {
    IZelMManager* manager = found.load(std::memory_order_acquire);
    return manager ? manager : lookUp();
}
