// SPDX-License-Identifier: Apache-2.0
// Texts and paths as the bytes of this system, and names back as the code units of the library.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// UTF-16 to UTF-8: surrogate pairs are joined, units that stand for a byte (0xDC5C, 0xDC80 to
/// 0xDCFF) give it, other lone surrogates their three-byte form.
std::string bytesOf(std::u16string_view units);
/// The other way, for texts that aren't names: a backslash stays one.
std::u16string unitsOf(std::string_view bytes);
/// The other way for a name of the file system or a path of it: a backslash, which belongs to a
/// name here, becomes 0xDC5C, and slashes become backslashes.
std::u16string unitsOfPath(std::string_view path);
/// The same into a text whose memory is used again.
void readUnitsOfPath(std::string_view path, std::u16string& units);

/// A path of the library as this system spells it: slashes, and "X:" resolved.
std::string systemPath(std::u16string_view path);
std::string systemPath(const char* path);

} // namespace platform
