// SPDX-License-Identifier: Apache-2.0
/// @file
/// A set of small integers, one bit each.
///
/// Element identifiers are 1-based. Bit 0 exists, but operations that mean all elements leave it
/// out. A negative index is no element: it tests as clear, and setting or clearing it does nothing.
///
/// The words stand in one block, or, where the vector is large and the host has a chunk manager, in
/// chunks of which only those with set bits need exist. Both look the same from outside, but for
/// `maxBit`: the room of a large vector is a whole number of chunks of 65536 bits.
///
/// A vector belongs to one thread at a time, or is only read; `count` writes its cache. The
/// parameters of an operation may be the vector itself. An allocation that fails for good ends the
/// process.
#pragma once

#include "component/objects/zelshared.h"
#include "zelbasictypes/memory/array.h"
#include "zelbasictypes/memory/bitvectorsplitter.h"
#include "zelbasictypes/sets/wordbits.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>

class BinInput;
class BinIO_Magic;
class BinOutput;
class BlockBitVector;
class IZelRandom;
namespace zelsets {
struct NextWords;
}

class BitVector : public ZelShared {
public:
    using LargeWords = ZelMM::Array<unsigned int, BitVectorSplitter>;
    /// From identifiers to identifiers, with 0 for none. Entries that are no positive number of 32
    /// bits count as 0.
    using IndexMap = LargeWords;

    static constexpr std::int32_t highestIndex = 0x7FFFFFFF;

    /// All bits clear, with room for `maxBit` at least.
    explicit BitVector(std::int32_t maxBit = 0);
    BitVector(const BitVector& other);
    /// Leaves `other` without storage, only fit for destruction.
    BitVector(BitVector&& other) noexcept;
    explicit BitVector(const BlockBitVector& other);
    /// Keeps the room of a dense vector that is wide enough, else takes the other's layout and
    /// room.
    BitVector& operator=(const BitVector& other);
    ~BitVector() override;

    /// Takes the bits of `other`, but keeps its own layout and its room unless that is too small.
    void copyBits(const BitVector& other);
    /// Takes the bits of `other`; the count is known afterwards.
    void assign(const BlockBitVector& other);
    /// Exchanges all but the stream identities.
    void swap(BitVector& other) noexcept;
    /// An empty vector for the whole process, built for bit 10.
    static const BitVector& sharedEmpty();

    /// The highest bit that has room; always a whole number of words, less one.
    std::int32_t maxBit() const { return maxBit_; }
    /// Whether the words stand in chunks.
    bool isLarge() const { return bvwordsLarge_ != nullptr; }
    /// True for a vector in one block.
    bool allChunksPresent() const;

    /// False beyond `maxBit`.
    bool test(std::int32_t i) const {
        if (static_cast<std::uint32_t>(i) > static_cast<std::uint32_t>(maxBit_)) return false;
        return zelsets::bitIn(bvwords_ ? bvwords_[wordOf(i)] : (*bvwordsLarge_)[wordOf(i)], i);
    }
    /// Grows when `i` has no room; always true.
    bool set(std::int32_t i) {
        if (static_cast<std::uint32_t>(i) > static_cast<std::uint32_t>(maxBit_)) return setFar(i);
        if (bvwords_) {
            setIn(bvwords_[wordOf(i)], i);
        } else if (std::uint32_t* word = wordsAt(i >> 5)) {
            setIn(*word, i);
        } else {
            setFar(i);
        }
        return true;
    }
    /// Always true.
    bool clear(std::int32_t i) {
        if (static_cast<std::uint32_t>(i) > static_cast<std::uint32_t>(maxBit_)) return true;
        if (bvwords_) {
            clearIn(bvwords_[wordOf(i)], i);
        } else if (std::uint32_t* word = wordsAt(i >> 5)) {
            clearIn(*word, i);
        }
        return true;
    }

    /// The number of set bits, from the cache where that is good.
    std::int32_t count() const { return numSet_ == unknownCount ? recount() : numSet_; }
    std::int32_t recount() const;
    /// Keeps the room.
    void clearAll();
    /// Sets all but bit 0, which is cleared.
    void setAll();
    /// Resizes to `n` and sets exactly the bits from 1 to `n`.
    void setFirst(std::int32_t n);
    /// Inverts all bits that have room, bit 0 too.
    void complement();
    /// Resizes to `n` and inverts the bits from 1 to `n`.
    void complementTo(std::int32_t n);
    /// Closed ranges, cut at `maxBit`; false without effect when `first` is beyond it.
    bool setRange(std::int32_t first, std::int32_t last);
    bool clearRange(std::int32_t first, std::int32_t last);
    /// Gives room for at least `maxBit`, or cuts behind its word; a large vector is cut behind its
    /// chunk, or becomes dense again when few words are left.
    void resize(std::int32_t maxBit);

    /// Compare the bits, whatever the room.
    bool operator==(const BitVector& other) const;
    bool isSubsetOf(const BitVector& other) const;
    bool isDisjointFrom(const BitVector& other) const;

    /// The lowest set or clear bit above `after`, or -1; -1 begins the walk. Bits without room are
    /// not found.
    std::int32_t nextSet(std::int32_t after) const {
        if (bvwords_ && after < maxBit_ && after >= -1) {
            const std::int32_t next = after + 1;
            const std::uint32_t word = bvwords_[next >> 5] >> (next & 31);
            if (word != 0) return next + std::countr_zero(word);
        }
        return nextSetFar(after);
    }
    std::int32_t nextClear(std::int32_t after) const;
    /// The highest set or clear bit below `before`, or -1. Bits without room count as clear.
    std::int32_t prevSet(std::int32_t before) const;
    std::int32_t prevClear(std::int32_t before) const;
    /// How many bits are set above `position`.
    std::int32_t countAfter(std::int32_t position) const;
    /// How many bits are set from 1 to `limit` - 1; 0 for a vector with bit 0.
    std::int32_t countBelow(std::int32_t limit) const;

    /// Calls `visit(i)` for all set bits in ascending order, much faster than a walk by `nextSet`
    /// where the bits are dense. Of the vector, only bits that were visited may be changed
    /// meanwhile, and no room.
    template <class Visit> void forEachSet(Visit visit) const {
        for (std::int32_t w = 0; w < wordCount(); w = endOfRun(w))
            if (const std::uint32_t* words = wordsAt(w))
                zelsets::visitBits(words, endOfRun(w) - w, w * zelsets::wordBits, visit);
    }

    /// Bits that only one side has room for count as clear on the other; union and exclusive union
    /// grow as far as the other has bits.
    BitVector& operator&=(const BitVector& other);
    BitVector& operator|=(const BitVector& other);
    BitVector& operator^=(const BitVector& other);
    BitVector& operator-=(const BitVector& other);
    BitVector& operator&=(const BlockBitVector& other);
    BitVector& operator|=(const BlockBitVector& other);
    BitVector& operator^=(const BlockBitVector& other);
    BitVector& operator-=(const BlockBitVector& other);

    /// For each entry i -> j of `map`, in ascending i: bit j becomes bit i of `other`, stays set
    /// only where that is set, is set where that is set, is toggled where that is set, stays set
    /// only where that is clear, or is inverted. Other bits stay.
    void assignMapped(const BitVector& other, const IndexMap& map);
    void andMapped(const BitVector& other, const IndexMap& map);
    void orMapped(const BitVector& other, const IndexMap& map);
    void xorMapped(const BitVector& other, const IndexMap& map);
    void minusMapped(const BitVector& other, const IndexMap& map);
    void complementMapped(const IndexMap& map);

    /// Brings the bits at the places of `selection` down to 1, 2, 3 and so on, and cuts behind
    /// them. Bit 0 stays.
    void gather(const BitVector& selection);
    /// Closes the gaps that the removed positions leave, from 0 on. Gives room back when less than
    /// half is left.
    void removePositions(const BitVector& removed);
    /// Moves bit i to `map[i]`, or clears it where that is 0, one after the other in ascending i
    /// within the room at the start; cuts behind the place that was filled last.
    void renumber(const IndexMap& map);
    /// Bit i becomes the old bit `map[i]`, for a permutation up to its highest entry that is not 0.
    void permute(const IndexMap& map);
    /// Moves all bits up and grows with them; nothing for `n` below 1. What would pass the highest
    /// index is lost.
    void shiftUp(std::int32_t n);

    /// Keeps about `n` of the set bits, evenly spread; nothing when bit 0 is set.
    void thin(std::int32_t n);
    /// Keeps a random sample of that share of the set bits. Without `random` the host's service is
    /// used, seeded by the count, and without that nothing happens.
    void thinRandomly(double fraction, IZelRandom* random = nullptr);
    /// Cuts the set bits into runs of nearly the same length: part k begins at bit `firsts[k]` and
    /// has `offsets[k + 1] - offsets[k]` set bits. Both arrays have `parts` + 1 entries, and
    /// `parts` is at least 1.
    void split(std::int32_t parts, std::int32_t* firsts, std::int32_t* offsets) const;

    /// In the list form where that is shorter, unless the stream is set to one of the versions 1
    /// to 12. The answer is whether the stream is good.
    bool write(BinOutput& out) const;
    /// False, with nothing changed, for another kind of data. Otherwise true, and what the stream
    /// lacks is clear: ask the stream whether it was whole. Where the stream lists bits the room is
    /// the one told, of which only what holds bits costs memory, and bits beyond it are dropped;
    /// where it has words the room grows with those that are there. An unknown form reads as no
    /// bits.
    bool read(BinInput& in);
    static bool isBitVectorMagic(std::uint32_t word) { return word == streamMagic; }

    /// The count, and the bits, 8 to a line.
    void print(std::ostream& out) const;
    /// On standard output, with an empty line behind.
    void print() const;

private:
    friend class BlockBitVector;

    static constexpr std::uint32_t streamMagic = 0x315E97D6;
    static constexpr std::int32_t unknownCount = -1;

    using CombineWords = void (*)(std::uint32_t* to, const std::uint32_t* from, std::size_t count,
                                  zelsets::NextWords next);

    /// The last bit in front of a word.
    static std::int32_t lastOf(std::int32_t end) {
        return static_cast<std::int32_t>(std::int64_t{end} * zelsets::wordBits - 1);
    }
    static std::uint32_t wordOf(std::int32_t i) { return static_cast<std::uint32_t>(i) >> 5; }

    std::int32_t wordCount() const { return (maxBit_ >> 5) + 1; }
    /// Words from `w` on stand together up to this one, which is the first of the next run.
    std::int32_t endOfRun(std::int32_t w) const {
        return bvwords_ ? wordCount() : (w | lastOfChunk) + 1;
    }
    std::int32_t startOfRun(std::int32_t w) const { return bvwords_ ? 0 : w & ~lastOfChunk; }
    /// The words from `w` to the end of their run, or null where a chunk of zeros is missing.
    const std::uint32_t* wordsAt(std::int32_t w) const {
        if (bvwords_) return bvwords_ + w;
        const auto place = static_cast<std::uint32_t>(w);
        const unsigned* chunk = bvwordsLarge_->chunkAt(BitVectorSplitter::chunkOf(place));
        return chunk ? chunk + BitVectorSplitter::offsetOf(place) : nullptr;
    }
    std::uint32_t* wordsAt(std::int32_t w) {
        return const_cast<std::uint32_t*>(static_cast<const BitVector*>(this)->wordsAt(w));
    }
    /// The same, with a missing chunk made.
    std::uint32_t* makeWordsAt(std::int32_t w);

    // The word and the count are read once each and count without a branch on the bit, which no
    // processor foresees in a set of random ones.
    void setIn(std::uint32_t& word, std::int32_t i) {
        const std::uint32_t old = word, mask = zelsets::maskOf(i);
        const std::int32_t known = numSet_;
        if (known != unknownCount) numSet_ = known + ((old & mask) == 0);
        word = old | mask;
    }
    void clearIn(std::uint32_t& word, std::int32_t i) {
        const std::uint32_t old = word, mask = zelsets::maskOf(i);
        const std::int32_t known = numSet_;
        if (known != unknownCount) numSet_ = known - ((old & mask) != 0);
        word = old & ~mask;
    }
    bool setFar(std::int32_t i);
    void toggle(std::int32_t i) { test(i) ? clear(i) : set(i); }
    std::int32_t nextSetFar(std::int32_t after) const;

    void makeStorage(std::int32_t words);
    void freeStorage();
    void copyStorage(const BitVector& other);
    void resizeDense(std::int32_t needed, std::int32_t wished);
    void becomeLarge(std::int32_t words);
    void becomeDense(std::int32_t words);
    void growKeepingLayout(std::int32_t words);

    std::int32_t highestWord() const;
    void copyWords(const BitVector& other, std::int32_t end);
    void clearWords(std::int32_t first, std::int32_t end);
    template <class Change>
    void changeBits(std::int32_t first, std::int32_t last, bool makeMissing, Change change);
    template <class Piece>
    bool overPieces(const BitVector& other, std::int32_t end, Piece piece) const;
    bool areZeroFrom(std::int32_t first) const;
    void merge(const BitVector& other, CombineWords combine);
    void combineBlocks(const BlockBitVector& other, CombineWords combine);
    void growFor(const BlockBitVector& other);
    template <class Find> std::int32_t findUp(std::int32_t first, bool inMissing, Find find) const;
    template <class Find> std::int32_t findDown(std::int32_t last, bool inMissing, Find find) const;
    std::int32_t countIn(std::int32_t first, std::int32_t last) const;

    class Filler;
    std::uint32_t wordAt(std::int32_t w) const;
    /// Makes no chunk for a 0.
    void storeWord(std::int32_t w, std::uint32_t value);
    void endAt(std::int64_t end);

    void writeWords(BinOutput& out) const;
    void growWhileReading(std::int32_t needed, std::int32_t told);
    void readWordForm(BinInput& in, std::int32_t words);
    bool readPiece(BinInput& in, std::int32_t w, std::int32_t count);
    void readListForm(BinInput& in, std::int32_t words, std::int32_t count);

    // The order of the fields is a contract between modules. One of the first two is set, and the
    // third always, but in a vector that was moved from.
    std::uint32_t* bvwords_ = nullptr;
    LargeWords* bvwordsLarge_ = nullptr;
    BinIO_Magic* magic_ = nullptr;
    std::int32_t maxBit_ = 31;
    mutable std::int32_t numSet_ = 0; ///< unknownCount while it isn't known

    static constexpr std::int32_t lastOfChunk = BitVectorSplitter::chunkElements - 1;
};
