// SPDX-License-Identifier: Apache-2.0
/// @file
/// Assertions, which stay active in every build, and the break flag shared with the host.
///
/// A failed assertion doesn't stop the code by itself: when the handler returns, the caller goes on
/// with the fallback written next to the check.
#pragma once

#include <cstdint>

/// Receives failed assertions, on the thread where they failed. The texts are static.
using ZelAssertHandler = void (*)(void* context, const char* expression, const char* file,
                                  std::int32_t line);

/// Passes a failed check to the handler set here, or else to the host's IZelAssertHandlerCB. With
/// neither, the process ends with status 255.
void zelAssertFail(const char* expression, const char* file, std::int32_t line);

/// Sets the module's own handler; null goes back to the host's. Set it before threads start.
void zelSetAssertHandler(ZelAssertHandler handler, void* context);

/// Whether the host may break into a debugger. True at the start, unless the environment variable
/// ZEL_BREAK_ENABLED is exactly "0".
/// @{
bool zelBreakEnabled();
void zelSetBreakEnabled(bool enabled);
/// @}

/// The value of the condition, so that the fallback stands next to it: `if (!ZEL_ASSERT(start >=
/// 0)) return -1;`
#define ZEL_ASSERT(cond) ((cond) ? true : (zelAssertFail(#cond, __FILE__, __LINE__), false))
