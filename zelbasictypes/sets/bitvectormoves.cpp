// SPDX-License-Identifier: Apache-2.0
// Moving the bits of a vector to other places, and thinning them out.
#include "component/objects/services/izelrandom.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/sets/bitvectorruns.h"
#include "zelbasictypes/sets/wordkernels.h"

#include <cmath>

using namespace zelsets;

namespace {

/// The bits of `word` at the places of `mask`, closed up from the lowest bit on.
std::uint32_t closedUp(std::uint32_t word, std::uint32_t mask) {
    if (mask == ~0U) return word;
    std::uint32_t closed = 0;
    for (std::uint32_t next = 1; mask != 0; mask &= mask - 1, next <<= 1)
        if (word & mask & ~(mask - 1)) closed |= next;
    return closed;
}

constexpr std::uint32_t lowBits(std::int32_t count) {
    return count >= wordBits ? ~0U : (1U << count) - 1;
}

} // namespace

/// Puts bits one behind the other into a vector, up to 32 at a time. Only set bits make it grow.
class BitVector::Filler {
public:
    Filler(BitVector& to, std::int64_t position) : to_(to), position_(position) {}

    void append(std::uint32_t bits, std::int32_t count) {
        if (count == 0) return;
        const auto offset = static_cast<std::int32_t>(position_ & 31);
        const std::int32_t fitting = std::min(count, wordBits - offset);
        replace(static_cast<std::int32_t>(position_ >> 5), lowBits(fitting) << offset,
                bits << offset);
        position_ += fitting;
        if (fitting < count) append(bits >> fitting, count - fitting);
    }
    std::int64_t position() const { return position_; }

private:
    void replace(std::int32_t w, std::uint32_t mask, std::uint32_t bits) {
        bits &= mask;
        if (w >= to_.wordCount() && bits != 0) to_.resize(lastOf(w + 1));
        if (w >= to_.wordCount()) return;
        std::uint32_t* word = bits != 0 ? to_.makeWordsAt(w) : to_.wordsAt(w);
        if (word) *word = (*word & ~mask) | bits;
    }

    BitVector& to_;
    std::int64_t position_;
};

std::uint32_t BitVector::wordAt(std::int32_t w) const {
    if (w >= wordCount()) return 0;
    const std::uint32_t* word = wordsAt(w);
    return word ? *word : 0;
}

/// Clears what stands behind the bits that were moved down.
void BitVector::endAt(std::int64_t end) {
    if (end <= maxBit_) changeBits(static_cast<std::int32_t>(end), maxBit_, false, clearBits);
    numSet_ = unknownCount;
}

/// Bits come down, but for those of a selection with bit 0, which go up by one at most. So a word
/// is read before the one in front of it is dealt with.
void BitVector::gather(const BitVector& selection) {
    Filler filler(*this, 1);
    const std::int32_t words = selection.wordCount();
    std::uint32_t nextBits = wordAt(0), nextMask = selection.wordAt(0);
    for (std::int32_t w = 0; w < words; ++w) {
        const std::uint32_t bits = nextBits, mask = nextMask;
        nextBits = wordAt(w + 1);
        nextMask = selection.wordAt(w + 1);
        filler.append(closedUp(bits, mask), std::popcount(mask));
    }
    endAt(filler.position());
    resize(static_cast<std::int32_t>(std::min<std::int64_t>(filler.position(), highestIndex)));
}

void BitVector::removePositions(const BitVector& removed) {
    Filler filler(*this, 0);
    const std::int32_t words = wordCount();
    for (std::int32_t w = 0; w < words; ++w) {
        const std::uint32_t mask = ~removed.wordAt(w);
        filler.append(closedUp(wordAt(w), mask), std::popcount(mask));
    }
    endAt(filler.position());
    if (filler.position() < maxBit_ / 2) resize(static_cast<std::int32_t>(filler.position()));
}

/// From the top word down, each taking its bits from the two that end up in it.
void BitVector::shiftUp(std::int32_t n) {
    if (n < 1) return;
    const std::int32_t old = wordCount();
    const bool isLosing = n > highestIndex - maxBit_;
    resize(isLosing ? highestIndex : maxBit_ + n);
    const std::int32_t words = n >> 5, bits = n & 31;
    const std::int32_t top = std::min(old + words, wordCount() - 1);
    for (std::int32_t w = top; w >= 0; --w) {
        const std::uint32_t high = w >= words ? wordAt(w - words) : 0;
        const std::uint32_t low = w > words ? wordAt(w - words - 1) : 0;
        const std::uint64_t both = std::uint64_t{high} << 32 | low;
        storeWord(w, static_cast<std::uint32_t>(both << bits >> 32));
    }
    if (isLosing) numSet_ = unknownCount;
}

void BitVector::storeWord(std::int32_t w, std::uint32_t value) {
    std::uint32_t* word = value != 0 ? makeWordsAt(w) : wordsAt(w);
    if (word) *word = value;
}

void BitVector::thin(std::int32_t n) {
    const std::int64_t total = count();
    if (total <= n || test(0)) return;
    std::int64_t accumulator = total / 2;
    for (std::int32_t i = nextSet(-1); i >= 0; i = nextSet(i)) {
        accumulator += n;
        if (accumulator < total) {
            clear(i);
        } else {
            accumulator -= total;
        }
    }
}

void BitVector::thinRandomly(double fraction, IZelRandom* random) {
    if (!random) {
        const SPtr<IZelRandom> service;
        if (!service.iface) return;
        service.iface->seed(
            static_cast<std::int32_t>(2U * static_cast<std::uint32_t>(count()) + 412U));
        return thinRandomly(fraction, service.iface);
    }
    std::int32_t remaining = count();
    const double wanted = remaining * fraction + 0.5;
    if (std::isnan(wanted)) return;
    auto keep = static_cast<std::int32_t>(std::clamp(wanted, 0.0, double(remaining)));
    for (std::int32_t i = nextSet(-1); i >= 0; i = nextSet(i)) {
        if (random->below(remaining--) < keep) {
            --keep;
        } else {
            clear(i);
        }
    }
}

void BitVector::split(std::int32_t parts, std::int32_t* firsts, std::int32_t* offsets) const {
    const std::int32_t total = count();
    firsts[0] = nextSet(-1);
    offsets[0] = 0;
    for (std::int32_t k = 1; k < parts; ++k) {
        offsets[k] = static_cast<std::int32_t>(static_cast<double>(k) / parts * total);
        firsts[k] = firsts[k - 1];
        for (std::int32_t step = offsets[k - 1]; step < offsets[k]; ++step)
            firsts[k] = nextSet(firsts[k]);
    }
    firsts[parts] = -1;
    offsets[parts] = total;
}
