// SPDX-License-Identifier: Apache-2.0
/// @file
/// The memory limit that the user has set, kept up to date as the settings change.
#pragma once

#include "component/objects/iptr.h"
#include "zelbasictypes/data/kordatareceiver.h"

#include <cstdint>

/// Holds the setting "Memory/MemLimit" and follows its changes. Without a settings store the limit
/// is what the machine has: physical memory or address space, whichever is greater, or -2147483648
/// when the system tells neither.
///
/// It takes no lock. The first use must be on one thread, and settings must change on the thread
/// that reads the limit.
class MemLimitListener : public KorDataReceiver {
public:
    /// A listener that has subscribed to the setting. It is made with a reference, since a settings
    /// store may hold it without one.
    static IPtr<MemLimitListener> make();

    void receiveDouble(const char* key, double value) override;

    std::int64_t limit = -2147483648LL; ///< in bytes, as the setting says

private:
    MemLimitListener();
    void subscribe();
};

/// The limit of the module's listener, which the first call makes and which lives as long as the
/// module.
std::int64_t zelMemoryLimit();
