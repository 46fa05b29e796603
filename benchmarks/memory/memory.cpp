// SPDX-License-Identifier: Apache-2.0
// How fast small blocks come and go, against other allocators in the same program, and how fast a
// chunked array is read, against a plain one. Seeds are fixed; what a race touches fits the caches.
#include "benchmarks/memory/races.h"
#include "benchmarks/support/race.h"

int main(int argc, char** argv) {
    addBlockRaces();
    addArrayRaces();
    return race::run(argc, argv);
}
