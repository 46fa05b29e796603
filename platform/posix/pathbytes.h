// SPDX-License-Identifier: Apache-2.0
// Paths as the bytes of this system, and names back as the code units of the library.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// UTF-16 to the bytes of a path: surrogate pairs are joined, U+DC80 to U+DCFF give the byte that
/// they stand for, other lone surrogates their three-byte form.
std::string bytesOf(std::u16string_view units);
/// The other way; each byte that is no part of valid UTF-8 becomes U+DC80 to U+DCFF.
std::u16string unitsOf(std::string_view bytes);

/// A path of the library as this system spells it: slashes, and "X:" resolved.
std::string systemPath(const char16_t* path);
std::string systemPath(const char* path);

} // namespace platform
