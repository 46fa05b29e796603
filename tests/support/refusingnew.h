// SPDX-License-Identifier: Apache-2.0
// An operator new that refuses, for programs that link refusingnew.cpp.
#pragma once

#include <cstddef>

namespace testsupport {

/// While it lives, no thread gets a block of `least` bytes or more from operator new.
class RefusingNew {
public:
    explicit RefusingNew(std::size_t least = 0);
    RefusingNew(const RefusingNew&) = delete;
    RefusingNew& operator=(const RefusingNew&) = delete;
    ~RefusingNew();
};

} // namespace testsupport
