// SPDX-License-Identifier: Apache-2.0
// How a process ended, on any system.
#pragma once

#include <gtest/gtest.h>

namespace testsupport {

/// With status -1, of which a POSIX system keeps eight bits.
inline bool endedWithMinusOne(int status) {
    return testing::ExitedWithCode(-1)(status) || testing::ExitedWithCode(255)(status);
}

} // namespace testsupport
