// SPDX-License-Identifier: Apache-2.0
/// @file
/// The stream form that bit vectors of both kinds share, behind their identity word: the number of
/// words, the highest bit, the form, the number of set bits, and then all words or the set bits.
#pragma once

#include <cstdint>

class BinInput;
class BinOutput;

namespace zelsets {

enum class StreamForm : std::int32_t { words = 0, list = 1 };

struct StreamHead {
    std::uint32_t words = 0;
    std::int32_t maxBit = 0;
    StreamForm form = StreamForm::words;
    std::int32_t count = 0;

    void write(BinOutput& out) const;
    /// What doesn't arrive stays 0.
    void read(BinInput& in);
    /// Whether a vector can follow. An honest stream has no other head.
    bool isSound() const;
};

/// A vector has no more words than its indices reach.
constexpr std::uint32_t mostWords = 1U << 26;
/// So many words that are to follow get storage because a stream says so; for more of them
/// something must be there. The room of a list is free until something stands in it.
constexpr std::int32_t trustedWords = 1 << 16;

/// Whether the list is worth it for so many words. `count` is only asked where the answer hangs on
/// it.
template <class Count> bool isListShorter(std::uint32_t words, std::uint32_t version, Count count) {
    return words > 32 && (version == 0 || version >= 13) &&
           static_cast<std::uint32_t>(count()) < words / 2;
}

/// Collects indices and writes them many at a time.
class ListWriter {
public:
    explicit ListWriter(BinOutput& out) : out_(out) {}
    ListWriter(const ListWriter&) = delete;
    ListWriter& operator=(const ListWriter&) = delete;
    ~ListWriter() { flush(); }

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

/// Reads indices many at a time. What doesn't arrive isn't listed.
class ListReader {
public:
    ListReader(BinInput& in, std::int32_t count) : in_(in), left_(count) {}

    /// False at the end.
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
