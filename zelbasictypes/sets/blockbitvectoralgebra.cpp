// SPDX-License-Identifier: Apache-2.0
// The algebra of block vectors, block by block: empty and full ones are settled by their counts.
#include "zelbasictypes/sets/blockbitvector.h"
#include "zelbasictypes/sets/wordkernels.h"

#include <algorithm>

using namespace zelsets;

/// What is to be combined behind block `b`, where both have storage for it.
NextWords BlockBitVector::nextOf(const BlockBitVector& other, std::int32_t b) const {
    if (b >= lastBlock || b >= other.lastBlock) return {};
    const NextWords next{blocks[b + 1], other.blocks[b + 1]};
    return next.to && next.from ? next : NextWords{};
}

BlockBitVector& BlockBitVector::operator&=(const BlockBitVector& other) {
    if (numSet_ == 0) return *this;
    if (other.numSet_ == 0) {
        clearAll();
        return *this;
    }
    for (std::int32_t b = 0; b <= lastBlock; ++b) {
        if (blockCounts[b] == 0) continue;
        if (!other.hasBits(b)) {
            becomeEmpty(b);
        } else if (!other.isFull(b)) {
            if (isFull(b)) {
                becomeCopy(b, other.blocks[b], blockWords);
            } else {
                andWords(blocks[b], other.blocks[b], blockWords, nextOf(other, b));
            }
            blockCounts[b] = unknownCount;
        }
    }
    numSet_ = unknownCount;
    return *this;
}

/// Calls `change(b)` where `other` has bits, with room for them here.
template <class Change>
void BlockBitVector::overBlocks(const BlockBitVector& other, Change change) {
    const std::int32_t end = other.lastUsedBlock();
    growFor(end);
    for (std::int32_t b = 0; b <= end; ++b)
        if (other.blockCounts[b] != 0) change(b);
    numSet_ = unknownCount;
}

BlockBitVector& BlockBitVector::operator|=(const BlockBitVector& other) {
    if (other.numSet_ == 0) return *this;
    overBlocks(other, [&](std::int32_t b) {
        if (isFull(b)) return;
        if (other.isFull(b)) {
            becomeFull(b);
        } else if (blockCounts[b] == 0) {
            becomeCopy(b, other);
        } else {
            orWords(blocks[b], other.blocks[b], blockWords, nextOf(other, b));
            blockCounts[b] = unknownCount;
        }
    });
    return *this;
}

BlockBitVector& BlockBitVector::operator^=(const BlockBitVector& other) {
    if (other.numSet_ == 0) return *this;
    overBlocks(other, [&](std::int32_t b) {
        if (blockCounts[b] == 0) {
            becomeCopy(b, other);
        } else if (isFull(b) && other.isFull(b)) {
            becomeEmpty(b);
        } else if (other.isFull(b)) {
            invertWords(blocks[b], blockWords);
            if (blockCounts[b] != unknownCount) blockCounts[b] = blockBits - blockCounts[b];
        } else {
            xorWords(makeWords(b), other.blocks[b], blockWords, nextOf(other, b));
            blockCounts[b] = unknownCount;
        }
    });
    return *this;
}

BlockBitVector& BlockBitVector::operator-=(const BlockBitVector& other) {
    if (numSet_ == 0 || other.numSet_ == 0) return *this;
    const std::int32_t end = std::min(lastBlock, other.lastBlock);
    for (std::int32_t b = 0; b <= end; ++b) {
        if (blockCounts[b] == 0 || other.blockCounts[b] == 0) continue;
        if (other.isFull(b)) {
            becomeEmpty(b);
        } else {
            minusWords(makeWords(b), other.blocks[b], blockWords, nextOf(other, b));
            blockCounts[b] = unknownCount;
        }
    }
    numSet_ = unknownCount;
    return *this;
}

std::int32_t BlockBitVector::blocksFor(const BitVector& vector) {
    return (vector.wordCount() + blockWords - 1) / blockWords;
}

BlockBitVector::Piece BlockBitVector::pieceOf(const BitVector& vector, std::int32_t b) {
    const std::int32_t w = b * blockWords;
    if (w >= vector.wordCount()) return {nullptr, 0};
    return {vector.wordsAt(w), std::min(vector.wordCount() - w, blockWords)};
}

BlockBitVector& BlockBitVector::operator&=(const BitVector& other) {
    if (numSet_ == 0) return *this;
    if (other.numSet_ == 0) {
        clearAll();
        return *this;
    }
    for (std::int32_t b = 0; b <= lastBlock; ++b) {
        if (blockCounts[b] == 0) continue;
        const Piece piece = pieceOf(other, b);
        if (!piece.words) {
            becomeEmpty(b);
        } else if (!blocks[b]) {
            becomeCopy(b, piece.words, piece.count);
        } else {
            andWords(blocks[b], piece.words, piece.size());
            std::fill(blocks[b] + piece.count, blocks[b] + blockWords, 0U);
            blockCounts[b] = unknownCount;
        }
    }
    numSet_ = unknownCount;
    return *this;
}

/// Calls `change(b, piece)` for each block that a vector of the other kind has words for, with room
/// for them here, but for chunks that are missing there.
template <class Change> void BlockBitVector::overPieces(const BitVector& other, Change change) {
    const std::int32_t count = blocksFor(other);
    growFor(count - 1);
    for (std::int32_t b = 0; b < count; ++b) {
        const Piece piece = pieceOf(other, b);
        if (piece.words) change(b, piece);
    }
    numSet_ = unknownCount;
}

BlockBitVector& BlockBitVector::operator|=(const BitVector& other) {
    if (other.numSet_ == 0) return *this;
    overPieces(other, [&](std::int32_t b, const Piece& piece) {
        if (isFull(b)) return;
        if (blockCounts[b] != 0) {
            orWords(blocks[b], piece.words, piece.size());
            blockCounts[b] = unknownCount;
        } else if (!areZero(piece.words, piece.size())) {
            becomeCopy(b, piece.words, piece.count);
        }
    });
    return *this;
}

BlockBitVector& BlockBitVector::operator^=(const BitVector& other) {
    if (other.numSet_ == 0) return *this;
    overPieces(other, [&](std::int32_t b, const Piece& piece) {
        if (blockCounts[b] != 0) {
            xorWords(makeWords(b), piece.words, piece.size());
            blockCounts[b] = unknownCount;
        } else if (!areZero(piece.words, piece.size())) {
            becomeCopy(b, piece.words, piece.count);
        }
    });
    return *this;
}

BlockBitVector& BlockBitVector::operator-=(const BitVector& other) {
    if (numSet_ == 0 || other.numSet_ == 0) return *this;
    const std::int32_t end = std::min(lastBlock, blocksFor(other) - 1);
    for (std::int32_t b = 0; b <= end; ++b) {
        const Piece piece = pieceOf(other, b);
        if (!piece.words || blockCounts[b] == 0) continue;
        minusWords(makeWords(b), piece.words, piece.size());
        blockCounts[b] = unknownCount;
    }
    numSet_ = unknownCount;
    return *this;
}
