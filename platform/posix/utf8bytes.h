// SPDX-License-Identifier: Apache-2.0
// Single sequences of UTF-8, valid and not.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// The length of the valid sequence at `i`, or 0. Surrogates and overlong forms are not valid.
std::size_t utf8Length(std::string_view bytes, std::size_t i);
/// The code point, or surrogate, in `length` bytes of the right shape.
char32_t utf8Decode(std::string_view bytes, std::size_t i, std::size_t length);
/// The surrogate whose three-byte form stands at `i`, or 0.
char32_t surrogateForm(std::string_view bytes, std::size_t i);
/// Surrogates get their three-byte form.
void utf8Append(std::string& out, char32_t c);

} // namespace platform
