// SPDX-License-Identifier: Apache-2.0
/// @file
/// The stream format of bit vectors of both kinds. After an identifying word it has the number of
/// words, the highest bit, the form, the number of set bits, and then all words or the set bits.
#pragma once

#include <cstdint>

class BinInput;
class BinOutput;

namespace zelsets {

/// What follows the head: all words, or the list of set bits.
enum class StreamForm : std::int32_t { words = 0, list = 1 };

/// The head of the stream.
struct StreamHead {
    std::uint32_t words = 0;             ///< 32-bit words of the vector
    std::int32_t maxBit = 0;             ///< highest bit that has room
    StreamForm form = StreamForm::words; ///< what follows
    std::int32_t count = 0;              ///< set bits

    /// Writes the four fields.
    void write(BinOutput& out) const;
    /// Reads the four fields; those that don't arrive stay 0.
    void read(BinInput& in);
    /// Whether a vector can follow. No correct stream has another head.
    bool isSound() const;
};

/// The words that indices can reach.
constexpr std::uint32_t mostWords = 1U << 26;
/// Up to this many words get storage on the word of the stream alone; more only as they arrive. The
/// room of a list costs nothing until it has bits.
constexpr std::int32_t trustedWords = 1 << 16;

/// Whether the list is the shorter form for so many words. `count` is called only when it decides.
template <class Count> bool isListShorter(std::uint32_t words, std::uint32_t version, Count count) {
    return words > 32 && (version == 0 || version >= 13) &&
           static_cast<std::uint32_t>(count()) < words / 2;
}

/// Collects indices and writes many at a time; the destructor writes the rest.
class ListWriter {
public:
    /// Writes to `out`, which must outlive it.
    explicit ListWriter(BinOutput& out) : out_(out) {}
    ListWriter(const ListWriter&) = delete;
    ListWriter& operator=(const ListWriter&) = delete;
    ~ListWriter() { flush(); }

    /// Adds an index.
    void put(std::int32_t index) {
        if (used_ == room) flush();
        indices_[used_++] = index;
    }

private:
    static constexpr std::int32_t room = 256;

    void flush();

    BinOutput& out_;
    std::int32_t used_ = 0;
    std::int32_t indices_[room];
};

/// Reads indices, many at a time. Those that don't arrive are left out.
class ListReader {
public:
    /// Reads at most `count` indices from `in`, which must outlive it.
    ListReader(BinInput& in, std::int32_t count) : in_(in), left_(count) {}

    /// Stores the next index; false at the end.
    bool next(std::int32_t& index) {
        if (at_ == used_ && !fill()) return false;
        index = indices_[at_++];
        return true;
    }

private:
    static constexpr std::int32_t room = 256;

    bool fill();

    BinInput& in_;
    std::int32_t left_;
    std::int32_t used_ = 0;
    std::int32_t at_ = 0;
    std::int32_t indices_[room];
};

} // namespace zelsets
