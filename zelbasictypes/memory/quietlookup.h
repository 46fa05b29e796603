// SPDX-License-Identifier: Apache-2.0
/// @file
/// Asking the host for a service on behalf of an allocation.
#pragma once

#include <exception>
#include <utility>

/// What `look` finds, or null: when this thread is at it already, since the host may allocate as it
/// looks, and when there is no memory for looking. `looking` is the thread's own, one for each kind
/// of service.
template <class Look> auto zelLookUpQuietly(bool& looking, Look look) -> decltype(look()) {
    if (std::exchange(looking, true)) return nullptr;
    decltype(look()) found = nullptr;
    try {
        found = look();
    } catch (const std::exception&) {
        found = nullptr;
    }
    looking = false;
    return found;
}
