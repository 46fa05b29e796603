// SPDX-License-Identifier: Apache-2.0
/// @file
/// The two functions by which an object reports its classes when `qi` is called with a null name.
/// The walk itself is in component/objectwalk.h.
#pragma once

#include <cstdint>

struct ZelObjectWalk;

/// Reports one class or interface of the object. With `hasBases` 1 the class stays open, and its
/// bases are reported next.
void zelWalkClass(const char* name, std::int32_t hasBases, ZelObjectWalk* walk);

/// Closes the class opened last, once all of its bases have been reported.
void zelLeaveClass(ZelObjectWalk* walk);
