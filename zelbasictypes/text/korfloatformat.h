// SPDX-License-Identifier: Apache-2.0
// How a number is turned into text.
#pragma once

struct KorFloatFormat {
    /// False: "f". True: "g", or "e" with `exponent`.
    bool general = false;
    bool exponent = false;
    /// What stands between the percent sign and the conversion letter, for example "8.3"; null is
    /// as good as empty. An asterisk has no argument to read and must not occur.
    const char* spec = "";
};
