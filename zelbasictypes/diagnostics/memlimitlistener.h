// SPDX-License-Identifier: Apache-2.0
// The memory limit that the user sets, kept as the settings change.
#pragma once

#include "component/objects/iptr.h"
#include "zelbasictypes/data/kordatareceiver.h"

#include <cstdint>

/// Listens to the setting "Memory/MemLimit" from its making on, whether the settings store holds it
/// with a reference or without, so it is made with one. Without the settings store the
/// limit is what the machine has, physical memory or address space, whichever is greater; where the
/// system doesn't tell either, -2147483648. It takes no lock: the first use is expected from one
/// thread, and settings change on the one that reads the limit.
class MemLimitListener : public KorDataReceiver {
public:
    static IPtr<MemLimitListener> make();

    void receiveDouble(const char* key, double value) override;

    std::int64_t limit = -2147483648LL; ///< in bytes, as the setting says it

private:
    MemLimitListener();
    void subscribe();
};

/// The limit of the module's one listener, which is made at the first call and lives as long as the
/// module.
std::int64_t zelMemoryLimit();
