// SPDX-License-Identifier: Apache-2.0
/// @file
/// A set of small integers in blocks of 32768 bits, of which empty and full ones need no storage.
///
/// It is meant for large sets whose elements lie close together: the algebra skips empty and full
/// blocks without touching a word. It is interchangeable with BitVector: each can be made from the
/// other, the algebra takes both, and both have the same stream format. Indices follow the same
/// rules.
///
/// A vector may be used by one thread at a time; `count` and `==` write its cache. Blocks come from
/// a free list of the whole process, which is safe on any thread.
#pragma once

#include "component/objects/zelshared.h"
#include "zelbasictypes/sets/bitvector.h"

/// A set of element identifiers in blocks.
class BlockBitVector : public ZelShared {
public:
    using IndexMap = BitVector::IndexMap; ///< a map from identifiers to identifiers

    static constexpr std::int32_t blockWords = 1024; ///< 32-bit words in a block
    static constexpr std::int32_t blockBits = 32768; ///< bits in a block

    /// An empty set. Its tables may be too short for `maxBit` and grow on demand.
    explicit BlockBitVector(std::int32_t maxBit = 0);
    /// A copy of the bits.
    BlockBitVector(const BlockBitVector& other);
    /// Leaves `other` empty.
    BlockBitVector(BlockBitVector&& other) noexcept;
    /// A copy of the bits in which every block has storage; compact() gives back what isn't needed.
    explicit BlockBitVector(const BitVector& other);
    /// Takes the bits of `other`.
    /// @{
    BlockBitVector& operator=(const BlockBitVector& other);
    BlockBitVector& operator=(const BitVector& other);
    /// @}
    ~BlockBitVector() override;

    /// Exchanges the sets.
    void swap(BlockBitVector& other) noexcept;

    /// Whether the bit is set.
    bool test(std::int32_t i) const {
        const std::int32_t b = blockOf(i);
        if (b > lastBlock) return false;
        const std::uint32_t* words = blocks[b];
        if (!words) [[unlikely]]
            return blockCounts[b] != 0;
        return zelsets::bitIn(words[wordOf(i)], i);
    }
    /// Sets the bit. True when it was clear.
    bool set(std::int32_t i) {
        const std::int32_t b = blockOf(i);
        if (b > lastBlock || !blocks[b]) [[unlikely]]
            return setFar(i);
        std::uint32_t& word = blocks[b][wordOf(i)];
        const std::uint32_t old = word, mask = zelsets::maskOf(i);
        const bool changes = (old & mask) == 0;
        addToCounts(b, changes);
        word = old | mask;
        return changes;
    }
    /// Sets the bit. True when it was set already.
    bool testAndSet(std::int32_t i) { return !set(i); }
    /// Clears the bit. True when it was set.
    bool clear(std::int32_t i) {
        const std::int32_t b = blockOf(i);
        if (b > lastBlock || !blocks[b]) [[unlikely]]
            return clearFar(i);
        std::uint32_t& word = blocks[b][wordOf(i)];
        const std::uint32_t old = word, mask = zelsets::maskOf(i);
        const bool changes = (old & mask) != 0;
        addToCounts(b, -std::int32_t{changes});
        word = old & ~mask;
        return changes;
    }
    /// Changes the bits from `first` to `last`, inclusive. Clearing stops at the end of the tables.
    /// Blocks that are covered completely lose their storage.
    /// @{
    void setRange(std::int32_t first, std::int32_t last);
    void clearRange(std::int32_t first, std::int32_t last);
    /// @}

    /// The number of set bits; cached.
    std::int32_t count() const { return numSet_ == unknownCount ? recount() : numSet_; }
    /// Counts the set bits again and caches the result.
    std::int32_t recount() const;
    /// Clears all bits.
    void clearAll();
    /// Gives back the storage of all empty and full blocks. The tables keep their length.
    void compact();
    /// Compares the bits.
    bool operator==(const BlockBitVector& other) const;
    /// As BitVector::renumber(), but cuts after the word of the position filled last.
    void renumber(const IndexMap& map);

    /// The lowest set bit above `after`, or -1; start with -1.
    std::int32_t nextSet(std::int32_t after) const;
    /// The highest set bit below `before`, or -1.
    std::int32_t prevSet(std::int32_t before) const;

    /// Calls `visit(i)` for all set bits in ascending order. Meanwhile only visited bits of this
    /// vector may be changed.
    template <class Visit> void forEachSet(Visit visit) const {
        for (std::int32_t b = 0; b <= lastBlock; ++b)
            if (const std::uint32_t* words = wordsOf(b))
                zelsets::visitBits(words, blockWords, b * blockBits, visit);
    }

    /// As for BitVector.
    /// @{
    BlockBitVector& operator&=(const BlockBitVector& other);
    BlockBitVector& operator|=(const BlockBitVector& other);
    BlockBitVector& operator^=(const BlockBitVector& other);
    BlockBitVector& operator-=(const BlockBitVector& other);
    BlockBitVector& operator&=(const BitVector& other);
    BlockBitVector& operator|=(const BitVector& other);
    BlockBitVector& operator^=(const BitVector& other);
    BlockBitVector& operator-=(const BitVector& other);
    /// @}

    /// As BitVector::write(). The room named in the stream is that of the blocks up to the last one
    /// with bits.
    bool write(BinOutput& out) const;
    /// As BitVector::read(), except that earlier content is cleared first.
    bool read(BinInput& in);

    /// A block from the free list or the heap, whose first words are all ones and the others zero.
    static std::uint32_t* allocateBlock(std::int32_t onesWords);
    /// A block with a copy of `count` words, followed by zeros.
    /// @{
    static std::uint32_t* allocateBlockFrom(const std::uint32_t* words, std::int32_t count);
    static std::uint32_t* allocateBlockFrom(const BitVector::LargeWords& array,
                                            std::uint32_t firstWord, std::int32_t count);
    /// @}
    /// Gives a block to the free list, or to the heap when that is full, and sets `block` to null.
    /// Null is allowed.
    static void releaseBlock(std::uint32_t*& block);
    /// The number of blocks that the free list keeps, 512 at first. Blocks in excess are freed.
    static void setBlockFreeListLimit(std::int32_t limit);
    /// Frees the blocks of the list and restores its limit. For shutdown, when no other thread uses
    /// the list: it takes no lock.
    static void destroyBlockFreeList();

private:
    friend class BitVector;
    /// Words of a vector of the other kind that fill or begin a block; null for zeros.
    struct Piece {
        const std::uint32_t* words;
        std::int32_t count;

        std::size_t size() const { return static_cast<std::size_t>(count); }
    };

    static constexpr std::int32_t unknownCount = -1;
    static constexpr std::int32_t mostBlocks = 0x10000;

    /// Beyond all tables for a negative index.
    static std::int32_t blockOf(std::int32_t i) {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(i) >> 15);
    }
    static std::uint32_t wordOf(std::int32_t i) {
        return static_cast<std::uint32_t>(i) >> 5 & (blockWords - 1);
    }
    static std::int32_t bitOf(std::int32_t i) { return i & (blockBits - 1); }

    bool hasBits(std::int32_t b) const { return b <= lastBlock && blockCounts[b] != 0; }
    bool isFull(std::int32_t b) const { return blockCounts[b] == blockBits; }
    /// For reading: null for an empty block, ones for a full one without storage.
    const std::uint32_t* wordsOf(std::int32_t b) const;
    /// For writing: gets storage where there is none.
    std::uint32_t* makeWords(std::int32_t b);
    void becomeEmpty(std::int32_t b);
    void becomeFull(std::int32_t b);
    void becomeCopy(std::int32_t b, const std::uint32_t* words, std::int32_t count);
    void becomeCopy(std::int32_t b, const BlockBitVector& other);

    void growFor(std::int32_t b);
    void freeTables();
    void addToCounts(std::int32_t b, std::int32_t change) {
        const std::int32_t inBlock = blockCounts[b], inAll = numSet_;
        if (inBlock != unknownCount) blockCounts[b] = inBlock + change;
        if (inAll != unknownCount) numSet_ = inAll + change;
    }
    bool setFar(std::int32_t i);
    bool clearFar(std::int32_t i);
    void setInBlock(std::int32_t b, std::int32_t first, std::int32_t last);
    bool clearInBlock(std::int32_t b, std::int32_t first, std::int32_t last);
    /// The highest block with bits, or -1.
    std::int32_t lastUsedBlock() const;

    zelsets::NextWords nextOf(const BlockBitVector& other, std::int32_t b) const;
    template <class Change> void overBlocks(const BlockBitVector& other, Change change);
    template <class Change> void overPieces(const BitVector& other, Change change);
    static std::int32_t blocksFor(const BitVector& vector);
    static Piece pieceOf(const BitVector& vector, std::int32_t b);
    void readWordForm(BinInput& in, std::int32_t words);

    // The order of the fields is a contract between modules. A count is that of a block's bits, or
    // unknownCount for one with storage; a block without storage is empty or full.
    std::uint32_t** blocks = nullptr;
    std::int32_t* blockCounts = nullptr;
    std::int32_t lastBlock = -1;
    mutable std::int32_t numSet_ = 0; ///< unknownCount while it isn't known
};

/// Iterates over the set bits of a vector, which must outlive it.
class BlockBitVectorIter {
public:
    /// An iterator that needs begin().
    explicit BlockBitVectorIter(const BlockBitVector& walked) : vector(&walked) {}

    /// Moves to the first or to the next set bit.
    /// @{
    void begin() { position_ = vector->nextSet(-1); }
    void next() { position_ = vector->nextSet(position_); }
    /// @}
    /// True after the last set bit.
    bool atEnd() const { return position_ == -1; }
    /// The current bit, or -1 at the end.
    std::int32_t position() const { return position_; }

private:
    const BlockBitVector* vector;
    std::int32_t position_ = -1;
};
