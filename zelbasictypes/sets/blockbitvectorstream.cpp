// SPDX-License-Identifier: Apache-2.0
// Writing and reading block vectors, in the form of bit vectors.
#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binio_magic.h"
#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/sets/blockbitvector.h"
#include "zelbasictypes/sets/setstream.h"

#include <algorithm>
#include <array>

using namespace zelsets;

bool BlockBitVector::write(BinOutput& out) const {
    const std::int32_t end = std::max(lastUsedBlock(), 0) + 1;
    const auto words = static_cast<std::uint32_t>(end * blockWords);
    const bool isList = isListShorter(words, out.version(), [this] { return count(); });
    BinIO_Magic(static_cast<std::int32_t>(BitVector::streamMagic)).write(out);
    StreamHead{words, BitVector::lastOf(end * blockWords),
               isList ? StreamForm::list : StreamForm::words, numSet_}
        .write(out);
    if (isList) {
        ListWriter list(out);
        forEachSet([&](std::int32_t i) { list.put(i); });
    } else {
        static constexpr std::array<std::uint32_t, blockWords> zeros{};
        for (std::int32_t b = 0; b < end; ++b) {
            const std::uint32_t* from = wordsOf(b);
            out.write(from ? from : zeros.data(), static_cast<std::uint64_t>(blockWords));
        }
    }
    return out.good();
}

bool BlockBitVector::read(BinInput& in) {
    BinIO_Magic magic(static_cast<std::int32_t>(BitVector::streamMagic));
    if (!magic.readSameTag(in)) return false;
    StreamHead head;
    head.read(in);
    clearAll();
    if (!head.isSound()) return true;
    const auto words = static_cast<std::int32_t>(head.words);
    if (head.form == StreamForm::words) {
        readWordForm(in, words);
    } else {
        ListReader list(in, head.count);
        for (std::int32_t i = 0; list.next(i);)
            if (i >= 0 && i <= BitVector::lastOf(words)) set(i);
    }
    compact();
    return true;
}

/// The tables grow with the blocks that arrive, and some ahead.
void BlockBitVector::readWordForm(BinInput& in, std::int32_t words) {
    const std::int32_t lastTold = (words - 1) / blockWords;
    growFor(std::min(lastTold, trustedWords / blockWords));
    bool isWhole = true;
    for (std::int32_t w = 0; w < words && isWhole; w += blockWords) {
        const std::int32_t b = w / blockWords;
        if (b > lastBlock) growFor(std::min(lastTold, 2 * b));
        releaseBlock(blocks[b]);
        blocks[b] = allocateBlock(0);
        blockCounts[b] = unknownCount;
        isWhole = in.read(blocks[b], static_cast<std::uint64_t>(std::min(words - w, blockWords)));
    }
    recount();
}
