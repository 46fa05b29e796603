// SPDX-License-Identifier: Apache-2.0
// jemalloc behind a door of its own, so that it serves only those who ask for it.
#pragma once

#include "benchmarks/memory/peers.h"

[[gnu::visibility("default")]] AllocatorCalls jemallocCalls();
