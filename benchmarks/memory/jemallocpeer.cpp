// SPDX-License-Identifier: Apache-2.0
// Within this library malloc is jemalloc's.
#include "benchmarks/memory/jemallocpeer.h"

#include <cstdlib>

AllocatorCalls jemallocCalls() { return {std::malloc, std::free}; }
