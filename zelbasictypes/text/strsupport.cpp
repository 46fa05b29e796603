// SPDX-License-Identifier: Apache-2.0
// The one look-up of the host's text operations.
#include "zelbasictypes/text/strsupport.h"

#include "component/objects/countservice.h"
#include "component/objects/services/izelstrsupport.h"

#include <atomic>
#include <mutex>

namespace {

std::atomic<bool> settled = false;
std::atomic<IZelStrSupport*> service = nullptr;

/// The host may use strings of this module while it answers, on the same thread: hence a lock that
/// its owner may take again, and the note that the look-up is under way.
void lookUpOnce() {
    static std::recursive_mutex lock;
    static bool underWay = false;
    const std::lock_guard guard(lock);
    if (underWay) return;
    underWay = true;
    void* found = nullptr;
    if (zelFindService(IZelStrSupport::interfaceName, &found) == 1)
        service = static_cast<IZelStrSupport*>(found);
    settled.store(true, std::memory_order_release);
}

} // namespace

IZelStrSupport* zelStrSupport() {
    if (!settled.load(std::memory_order_acquire)) lookUpOnce();
    return service.load(std::memory_order_acquire);
}
