// SPDX-License-Identifier: Apache-2.0
// The subscription to the limit.
#include "zelbasictypes/diagnostics/memlimitlistener.h"

#include "component/objects/services/idatastore.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/diagnostics/systemmemory.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr const char* limitKey = "Memory/MemLimit";

/// What a 64-bit number can't hold becomes the nearest that it can; no number becomes 0.
std::int64_t truncated(double value) {
    constexpr double beyond = 9223372036854775808.0;
    if (std::isnan(value)) return 0;
    if (value >= beyond) return std::numeric_limits<std::int64_t>::max();
    return value < -beyond ? std::numeric_limits<std::int64_t>::min()
                           : static_cast<std::int64_t>(value);
}

} // namespace

MemLimitListener::MemLimitListener() {
    platform::MemoryStatus now;
    if (zelSystemMemory().status(now)) {
        limit = static_cast<std::int64_t>(std::max(now.physicalTotal, now.virtualTotal));
    }
}

IPtr<MemLimitListener> MemLimitListener::make() {
    IPtr<MemLimitListener> listener(new MemLimitListener);
    listener->subscribe();
    return listener;
}

void MemLimitListener::subscribe() {
    const SPtr<IDataStore> store;
    if (!store) return;
    store->subscribe(limitKey, this);
    limit = truncated(store->getDouble(limitKey, 0));
}

void MemLimitListener::receiveDouble(const char* key, double value) {
    if (std::strcmp(key, limitKey) == 0) limit = truncated(value);
}

std::int64_t zelMemoryLimit() {
    static const IPtr<MemLimitListener> listener = MemLimitListener::make();
    return listener->limit;
}
