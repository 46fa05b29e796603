// SPDX-License-Identifier: Apache-2.0
// The two calls through which every reference count in a module changes, and the one by which the
// lower floors find a service of the host. They are declared here by plain types and defined over
// the host's component manager in component/manageraccess.cpp, so that a string or an assertion
// can ask for a service without knowing the manager.
#pragma once

#include <cstdint>

/// Adds one to `*count`, through the host's manager once it is known. Before that, on the single
/// thread of static initialisation, it is a plain addition.
void zelIncrement(std::int32_t* count);

/// Subtracts one from `*count`; true when the count reached zero. Without a manager the count is
/// left at -42 by the release that answers true, so that a release too many never answers true.
bool zelDecrement(std::int32_t* count);

/// Looks a service of the host up by the name of its interface. On success stores a borrowed
/// pointer to that interface (no reference taken) and returns 1. On failure returns something else
/// and leaves `*out` alone: clear it first, test it afterwards.
std::int32_t zelFindService(const char* name, void** out);
