// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a number is turned into text.
#pragma once

/// The format of a number, as printf spells it.
struct KorFloatFormat {
    /// The conversion letter: "f" when `general` is false, else "g", or "e" with `exponent`.
    /// @{
    bool general = false;
    bool exponent = false;
    /// @}
    /// The text between the percent sign and the conversion letter, for example "8.3". Null counts
    /// as empty. It must not contain an asterisk.
    const char* spec = "";
};
