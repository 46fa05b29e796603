// SPDX-License-Identifier: Apache-2.0
// The library's code units as the system's wide characters; here the two are the same bits.
#pragma once

#include <string>

namespace platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline const wchar_t* wide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }
inline wchar_t* wide(char16_t* text) { return reinterpret_cast<wchar_t*>(text); }
inline const char16_t* units(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

/// A narrow path that is null names nothing, as the empty one; the runtime library would end the
/// process over it.
inline const char* given(const char* path) { return path ? path : ""; }

} // namespace platform
