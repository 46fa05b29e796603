// SPDX-License-Identifier: Apache-2.0
// Writing, reading and printing bit vectors.
#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binio_magic.h"
#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/sets/bitvectorruns.h"
#include "zelbasictypes/sets/setstream.h"
#include "zelbasictypes/sets/wordkernels.h"

#include <array>
#include <iostream>

using namespace zelsets;

namespace {

constexpr std::int32_t pieceWords = BitVectorSplitter::chunkElements;

} // namespace

bool BitVector::write(BinOutput& out) const {
    const auto words = static_cast<std::uint32_t>(wordCount());
    const bool isList = isListShorter(words, out.version(), [this] { return count(); });
    magic_->write(out);
    StreamHead{words, maxBit_, isList ? StreamForm::list : StreamForm::words, numSet_}.write(out);
    if (isList) {
        ListWriter list(out);
        forEachSet([&](std::int32_t i) { list.put(i); });
    } else {
        writeWords(out);
    }
    return out.good();
}

void BitVector::writeWords(BinOutput& out) const {
    static constexpr std::array<std::uint32_t, pieceWords> zeros{};
    for (std::int32_t w = 0; w < wordCount(); w = endOfRun(w)) {
        const std::uint32_t* words = wordsAt(w);
        out.write(words ? words : zeros.data(), static_cast<std::uint64_t>(endOfRun(w) - w));
    }
}

bool BitVector::read(BinInput& in) {
    BinIO_Magic found = *magic_;
    if (!found.readSameTag(in)) return false;
    *magic_ = found;
    StreamHead head;
    head.read(in);
    freeStorage();
    numSet_ = 0;
    if (!head.isSound()) {
        makeStorage(1);
    } else if (head.form == StreamForm::words) {
        readWordForm(in, static_cast<std::int32_t>(head.words));
    } else {
        readListForm(in, static_cast<std::int32_t>(head.words), head.count);
    }
    return true;
}

/// Makes room for `needed` of the words that a stream told of, and some ahead.
void BitVector::growWhileReading(std::int32_t needed, std::int32_t told) {
    if (needed <= wordCount()) return;
    growKeepingLayout(std::min(told, std::max(needed, 2 * wordCount())));
}

void BitVector::readWordForm(BinInput& in, std::int32_t words) {
    makeStorage(std::min(words, trustedWords));
    bool isWhole = true;
    for (std::int32_t w = 0; w < words && isWhole; w += pieceWords) {
        const std::int32_t count = std::min(words - w, pieceWords);
        growWhileReading(w + count, words);
        isWhole = readPiece(in, w, count);
    }
    numSet_ = unknownCount;
}

bool BitVector::readPiece(BinInput& in, std::int32_t w, std::int32_t count) {
    const auto size = static_cast<std::size_t>(count);
    if (bvwords_) return in.read(bvwords_ + w, size);
    std::array<std::uint32_t, pieceWords> piece{};
    const bool isWhole = in.read(piece.data(), size);
    if (!areZero(piece.data(), size)) std::copy_n(piece.data(), count, makeWordsAt(w));
    return isWhole;
}

void BitVector::readListForm(BinInput& in, std::int32_t words, std::int32_t count) {
    makeStorage(words);
    ListReader list(in, count);
    for (std::int32_t i = 0; list.next(i);)
        if (i >= 0 && i <= lastOf(words)) set(i);
}

void BitVector::print(std::ostream& out) const {
    out << "numSet=" << count() << '\n';
    std::int32_t printed = 0;
    forEachSet([&](std::int32_t i) {
        if (printed > 0 && printed % 8 == 0) out << '\n';
        out << i << ' ';
        ++printed;
    });
    out << '\n';
}

void BitVector::print() const {
    print(std::cout);
    std::cout << std::endl;
}
