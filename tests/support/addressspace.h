// SPDX-License-Identifier: Apache-2.0
// Whether the build leaves room for a limit on addresses.
#pragma once

namespace testsupport {

/// Sanitizers keep terabytes of addresses for themselves, so that no limit can be set.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool addressSpaceIsTaken = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr bool addressSpaceIsTaken = true;
#else
inline constexpr bool addressSpaceIsTaken = false;
#endif
#else
inline constexpr bool addressSpaceIsTaken = false;
#endif

} // namespace testsupport
