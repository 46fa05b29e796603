// SPDX-License-Identifier: Apache-2.0
/// @file
/// Looks up a host service on behalf of an allocation.
#pragma once

#include <exception>
#include <utility>

/// The result of `look`, or null when there is no memory for the lookup or when this thread is in
/// one already, since the host may allocate during the lookup. `looking` must be a variable of the
/// thread, one for each kind of service.
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
