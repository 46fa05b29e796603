// SPDX-License-Identifier: Apache-2.0
// Sets and index arrays from arbitrary bytes. Both kinds of sets must take the same from a stream,
// all at once or in pieces, and a set that was written must come back the same; an index array must
// hold the numbers that stand there. The first byte chooses the size of the pieces and what is
// done with the sets in between. No seeds are needed: sets get their identity word from here.
#include "fuzz/require.h"
#include "tests/zelbasictypes/modelbytes.h"
#include "tests/zelbasictypes/streams.h"
#include "zelbasictypes/sets/blockbitvector.h"
#include "zelbasictypes/sets/indexarray.h"

namespace {

constexpr std::int32_t largestCompared = 1 << 20; ///< what is larger takes its time

template <class Set> std::vector<std::int32_t> bitsOf(const Set& set) {
    std::vector<std::int32_t> bits;
    set.forEachSet([&](std::int32_t i) { bits.push_back(i); });
    return bits;
}

/// Bits at the positions where a walk by searches finds them, and as many as are counted.
template <class Set> void requireWhole(const Set& set) {
    std::int32_t found = -1, count = 0;
    for (const std::int32_t bit : bitsOf(set)) {
        found = set.nextSet(found);
        require(found == bit && set.test(bit), "a search finds other bits");
        ++count;
    }
    require(set.nextSet(found) == -1 || count == 0, "a search finds more bits");
    require(set.count() == count, "another count");
}

template <class Set> void requireReturn(const Set& set, std::uint32_t version) {
    BinOutputMemory out;
    out.setVersion(version);
    require(set.write(out), "not written");
    out.flushBuffer();
    BinInputMemory in(out.bytes());
    Set again;
    require(again.read(in) && again == set, "comes back otherwise");
}

void readSets(const Bytes& bytes, std::uint8_t choice) {
    PortionInput pieces(bytes, 1 + choice % 64);
    BinInputMemory whole(bytes);
    BitVector vector;
    BlockBitVector blocks;
    require(vector.read(pieces) && blocks.read(whole), "not read as a set");
    require(pieces.tell() == whole.tell(), "the kinds read to different places");
    if (vector.maxBit() > largestCompared) return;
    requireWhole(vector);
    requireWhole(blocks);
    require(bitsOf(vector) == bitsOf(blocks), "the kinds differ");

    vector.set(choice * 300);
    blocks |= vector;
    vector ^= blocks;
    require(vector.count() == 0, "a difference is left");
    requireReturn(blocks, choice & 1 ? 12 : 0);
    vector.assign(blocks);
    requireReturn(vector, choice & 1 ? 12 : 0);
}

void readArray(const Bytes& bytes) {
    BinInputMemory in(bytes);
    IndexArray array;
    if (!array.read(in)) return require(array.size() == 0, "a refused array has grown");
    const auto told = bigendian::load<std::uint32_t>(bytes.data());
    for (std::uint32_t i = 0; i < array.size(); i += 1 + array.size() / 5000) {
        const bool isThere = i < told && 4 * std::uint64_t{i} + 8 <= bytes.size();
        require(array.at(i) == (isThere ? bigendian::load<std::uint32_t>(&bytes[4 * i + 4]) : 0),
                "another number");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const Bytes input(data + 1, data + size);
    readSets(bytes("31 5E 97 D6") + input, data[0]);
    readArray(input);
    return 0;
}
