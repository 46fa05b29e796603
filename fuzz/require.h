// SPDX-License-Identifier: Apache-2.0
// What a harness holds to be true. The fuzzer takes the end of the program for a find.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void require(bool holds, const char* otherwise) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", otherwise);
    std::abort();
}
