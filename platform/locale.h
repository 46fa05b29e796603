// SPDX-License-Identifier: Apache-2.0
/// @file
/// How numbers are written: as the user does, or independently of any locale.
#pragma once

#include <string>

namespace platform {

/// The user's decimal separator, whatever locale the process has set; empty when it can't be told.
std::u16string decimalSeparator();

/// While an object of this class lives, the runtime library reads and writes numbers on the calling
/// thread as in the "C" locale, with a point, whatever locale the process has set. It must be
/// destroyed on the thread that made it.
class PlainNumbers {
public:
    PlainNumbers();
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;
    ~PlainNumbers();

private:
    struct Before;
    Before& before();

    alignas(void*) unsigned char room_[80];
};

} // namespace platform
