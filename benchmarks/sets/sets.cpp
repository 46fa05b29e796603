// SPDX-License-Identifier: Apache-2.0
// Races of the sets against loops over plain words, boost::dynamic_bitset, std::vector<bool> and
// CRoaring, whose runs are optimised.
//
// Algebra, comparison and count of sets that are half full isolate the loops over words: nothing is
// allocated. Sets of 10,000 bits stay in the processor's nearest cache, those of a million in the
// next one, and those of a hundred million mostly don't fit any. The algebra of block vectors works
// on a fresh copy each time, made outside the clock, since it changes which blocks are there. Walks
// add up what they visit. Single bits are 4096 random ones, tested, set and cleared in turns.
//
// The reference host's chunk manager is there. Bit vectors are dense all the same, but for those
// that say otherwise.
#include "benchmarks/sets/races.h"

int main(int argc, char** argv) {
    addAlgebraRaces();
    addBlockRaces();
    addWalkRaces();
    return race::run(argc, argv);
}
