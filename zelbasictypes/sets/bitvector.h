// SPDX-License-Identifier: Apache-2.0
/// @file
/// A set of small integers, one bit each.
///
/// Identifiers of elements are 1-based. Bit 0 exists, but operations on all elements leave it out.
/// A negative index is no element: it tests as clear, and setting or clearing it does nothing.
///
/// The words are stored in one block (a dense vector). When the vector is large and the host has a
/// chunk manager, they are stored in chunks instead, of which only those with set bits need to
/// exist (a large vector). Both behave the same, except for `maxBit`: a large vector has room for a
/// whole number of chunks of 65536 bits.
///
/// A vector may be used by one thread at a time, or read by several once its count is known, since
/// `count` writes a cache. A parameter of an operation may be the vector itself. An allocation that
/// finally fails ends the process.
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

/// A set of element identifiers.
class BitVector : public ZelShared {
public:
    /// The words of a large vector.
    using LargeWords = ZelMM::Array<unsigned int, BitVectorSplitter>;
    /// A map from identifiers to identifiers, where 0 is none. Entries that aren't positive 32-bit
    /// numbers count as 0.
    using IndexMap = LargeWords;

    /// The highest identifier.
    static constexpr std::int32_t highestIndex = 0x7FFFFFFF;

    /// All bits clear, with room for `maxBit` at least.
    explicit BitVector(std::int32_t maxBit = 0);
    /// A copy of the bits and the layout.
    BitVector(const BitVector& other);
    /// Leaves `other` without storage; it may only be destroyed.
    BitVector(BitVector&& other) noexcept;
    /// A copy of the bits.
    explicit BitVector(const BlockBitVector& other);
    /// Keeps the room of a dense vector that is large enough; otherwise takes over the other's
    /// layout and room.
    BitVector& operator=(const BitVector& other);
    ~BitVector() override;

    /// Takes the bits of `other` but keeps its own layout, and its room unless that is too small.
    void copyBits(const BitVector& other);
    /// Takes the bits of `other`; the count is known afterwards.
    void assign(const BlockBitVector& other);
    /// Exchanges everything except the stream identities.
    void swap(BitVector& other) noexcept;
    /// An empty vector shared by the whole process, with room for bit 10.
    static const BitVector& sharedEmpty();

    /// The highest bit that has room; the room is a whole number of words.
    std::int32_t maxBit() const { return maxBit_; }
    /// Whether the words are stored in chunks.
    bool isLarge() const { return bvwordsLarge_ != nullptr; }
    /// Whether no chunk is missing. Always true for a dense vector.
    bool allChunksPresent() const;

    /// Whether the bit is set; false beyond maxBit().
    bool test(std::int32_t i) const {
        if (static_cast<std::uint32_t>(i) > static_cast<std::uint32_t>(maxBit_)) return false;
        return zelsets::bitIn(bvwords_ ? bvwords_[wordOf(i)] : (*bvwordsLarge_)[wordOf(i)], i);
    }
    /// Sets the bit and grows if it has no room. Always true.
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
    /// Clears the bit. Always true.
    bool clear(std::int32_t i) {
        if (static_cast<std::uint32_t>(i) > static_cast<std::uint32_t>(maxBit_)) return true;
        if (bvwords_) {
            clearIn(bvwords_[wordOf(i)], i);
        } else if (std::uint32_t* word = wordsAt(i >> 5)) {
            clearIn(*word, i);
        }
        return true;
    }

    /// The number of set bits; cached.
    std::int32_t count() const { return numSet_ == unknownCount ? recount() : numSet_; }
    /// Counts the set bits again and caches the result.
    std::int32_t recount() const;
    /// Clears all bits and keeps the room.
    void clearAll();
    /// Sets all bits that have room, except bit 0, which is cleared.
    void setAll();
    /// Resizes to `n` and sets exactly the bits from 1 to `n`.
    void setFirst(std::int32_t n);
    /// Inverts all bits that have room, including bit 0.
    void complement();
    /// Resizes to `n` and inverts the bits from 1 to `n`.
    void complementTo(std::int32_t n);
    /// Changes the bits from `first` to `last`, inclusive, cut at maxBit(). False, with nothing
    /// changed, when `first` is beyond it.
    /// @{
    bool setRange(std::int32_t first, std::int32_t last);
    bool clearRange(std::int32_t first, std::int32_t last);
    /// @}
    /// Makes room for at least `maxBit`, or cuts after its word. A large vector is cut after its
    /// chunk, or becomes dense again when few words are left.
    void resize(std::int32_t maxBit);

    /// Compares the bits, whatever the room.
    /// @{
    bool operator==(const BitVector& other) const;
    bool isSubsetOf(const BitVector& other) const;
    bool isDisjointFrom(const BitVector& other) const;
    /// @}

    /// The lowest set or clear bit above `after`, or -1; start with -1. Bits without room aren't
    /// found.
    /// @{
    std::int32_t nextSet(std::int32_t after) const {
        if (bvwords_ && after < maxBit_ && after >= -1) {
            const std::int32_t next = after + 1;
            const std::uint32_t word = bvwords_[next >> 5] >> (next & 31);
            if (word != 0) return next + std::countr_zero(word);
        }
        return nextSetFar(after);
    }
    std::int32_t nextClear(std::int32_t after) const;
    /// @}
    /// The highest set or clear bit below `before`, or -1. Bits without room count as clear.
    /// @{
    std::int32_t prevSet(std::int32_t before) const;
    std::int32_t prevClear(std::int32_t before) const;
    /// @}
    /// The number of set bits above `position`.
    std::int32_t countAfter(std::int32_t position) const;
    /// The number of set bits from 1 to `limit` - 1; 0 when bit 0 is set.
    std::int32_t countBelow(std::int32_t limit) const;

    /// Calls `visit(i)` for all set bits in ascending order, much faster than nextSet() where the
    /// bits are dense. Meanwhile only visited bits of this vector may be changed, and its room must
    /// not.
    template <class Visit> void forEachSet(Visit visit) const {
        for (std::int32_t w = 0; w < wordCount(); w = endOfRun(w))
            if (const std::uint32_t* words = wordsAt(w))
                zelsets::visitBits(words, endOfRun(w) - w, w * zelsets::wordBits, visit);
    }

    /// Intersection, union, exclusive union and difference. Bits for which only one side has room
    /// count as clear on the other. The unions grow as far as the other has bits.
    /// @{
    BitVector& operator&=(const BitVector& other);
    BitVector& operator|=(const BitVector& other);
    BitVector& operator^=(const BitVector& other);
    BitVector& operator-=(const BitVector& other);
    BitVector& operator&=(const BlockBitVector& other);
    BitVector& operator|=(const BlockBitVector& other);
    BitVector& operator^=(const BlockBitVector& other);
    BitVector& operator-=(const BlockBitVector& other);
    /// @}

    /// For each entry i -> j of `map`, in ascending i, bit j is changed according to bit i of
    /// `other`: it becomes that bit, is combined with it by and, or, exclusive or, or difference,
    /// or is inverted. Other bits stay.
    /// @{
    void assignMapped(const BitVector& other, const IndexMap& map);
    void andMapped(const BitVector& other, const IndexMap& map);
    void orMapped(const BitVector& other, const IndexMap& map);
    void xorMapped(const BitVector& other, const IndexMap& map);
    void minusMapped(const BitVector& other, const IndexMap& map);
    void complementMapped(const IndexMap& map);
    /// @}

    /// Moves the bits at the positions in `selection` down to 1, 2, 3 and so on, and cuts after
    /// them. Bit 0 stays.
    void gather(const BitVector& selection);
    /// Closes the gaps left by the removed positions, from 0 on. Gives room back when less than
    /// half is used.
    void removePositions(const BitVector& removed);
    /// Moves bit i to `map[i]`, or clears it where that is 0, in ascending i and within the initial
    /// room. Cuts after the position filled last.
    void renumber(const IndexMap& map);
    /// Bit i becomes the old bit `map[i]`, for a permutation up to its highest entry that isn't 0.
    void permute(const IndexMap& map);
    /// Moves all bits up by `n` and grows; does nothing for `n` below 1. Bits that would exceed the
    /// highest index are lost.
    void shiftUp(std::int32_t n);

    /// Keeps about `n` of the set bits, evenly spread; does nothing when bit 0 is set.
    void thin(std::int32_t n);
    /// Keeps a random sample, `fraction` of the set bits. Without `random` the host's service is
    /// used, seeded by the count; without that nothing happens.
    void thinRandomly(double fraction, IZelRandom* random = nullptr);
    /// Divides the set bits into `parts` runs of nearly the same length, at least one. Part k
    /// begins at bit `firsts[k]` and has `offsets[k + 1] - offsets[k]` set bits. Both arrays have
    /// `parts` + 1 entries.
    void split(std::int32_t parts, std::int32_t* firsts, std::int32_t* offsets) const;

    /// Writes the words or a list of the set bits, whichever is shorter; always the words when the
    /// version of the stream is 1 to 12. True when the stream is good.
    bool write(BinOutput& out) const;
    /// False, with nothing changed, for data of another kind. Otherwise true, and bits that the
    /// stream lacks are clear: ask the stream whether it was complete.
    ///
    /// When the stream lists bits, the room is the one it names, of which only parts with bits use
    /// memory, and bits beyond it are dropped. When it has words, the room grows as they arrive. An
    /// unknown form reads as no bits.
    bool read(BinInput& in);
    /// Whether a stream's word begins a bit vector.
    static bool isBitVectorMagic(std::uint32_t word) { return word == streamMagic; }

    /// Prints the count and the bits, 8 per line.
    void print(std::ostream& out) const;
    /// The same to standard output, followed by an empty line.
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
