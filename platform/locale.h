// SPDX-License-Identifier: Apache-2.0
// How numbers are written: by the user, and without one.
#pragma once

#include <string>

namespace platform {

/// The user's decimal separator, whatever locale the process is in; empty when it can't be told.
std::u16string decimalSeparator();

/// While it lives, the runtime library reads and writes numbers on this thread as the C language
/// does, with a point, whatever locale the process is in.
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
