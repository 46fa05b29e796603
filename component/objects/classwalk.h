// SPDX-License-Identifier: Apache-2.0
// The two calls by which an object reports its classes when `qi` is asked with a null name. The
// walk itself stands in component/objectwalk.h.
#pragma once

#include <cstdint>

struct ZelObjectWalk;

/// Reports one class or interface of the object. `hasBases` 1 opens a class, whose bases follow.
void zelWalkClass(const char* name, std::int32_t hasBases, ZelObjectWalk* walk);

/// Closes the class opened last, when all its bases have been reported.
void zelLeaveClass(ZelObjectWalk* walk);
