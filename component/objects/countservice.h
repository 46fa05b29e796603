// SPDX-License-Identifier: Apache-2.0
/// @file
/// Reference counting and the lookup of host services, for the lower layers. They are declared with
/// plain types here and defined over the host's component manager in component/manageraccess.cpp,
/// so that a string or an assertion can ask for a service without knowing the manager.
#pragma once

#include <cstdint>

/// Adds one to `*count`. Once the host's manager is known, it does the counting, safely on any
/// thread. Before that, on the single thread of static initialisation, this is a plain addition.
void zelIncrement(std::int32_t* count);

/// Subtracts one from `*count`; true when the count reached zero. Without a manager that release
/// leaves the count at -42, so that a surplus release never answers true.
bool zelDecrement(std::int32_t* count);

/// Looks up a host service by the name of its interface. On success stores a borrowed pointer to
/// that interface and returns 1. On failure returns another value and leaves `*out` alone: set it
/// to null first and test it afterwards.
std::int32_t zelFindService(const char* name, void** out);
