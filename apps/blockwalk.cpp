// SPDX-License-Identifier: Apache-2.0
// Tells blocks from plain bytes and from damage.
#include "apps/blockwalk.h"

#include "zelbasictypes/data/zelblocktags.h"

#include <algorithm>
#include <array>

namespace apps {

namespace {

constexpr std::uint32_t guidBytes = 16;

constexpr BlockKind kinds[] = {
    {zelblock::file, "file", 0, false},
    {zelblock::object, "object", guidBytes, false},
    {zelblock::vector, "vector", 24, false},
    {zelblock::narrowText, "narrow text", 0, true},
    {zelblock::matrix, "matrix", 128, false},
    {zelblock::wideText, "wide text", 0, true},
    {zelblock::fourDoubles, "four doubles", 32, false},
    {zelblock::guid, "identifier", guidBytes, false},
    {zelblock::doublePair, "pair of doubles", 16, false},
    {zelblock::floatPair, "pair of floats", 8, false},
};

bool holdsBlocks(std::uint32_t tag) {
    return tag == zelblock::file || tag == zelblock::object || !blockKind(tag);
}

} // namespace

const BlockKind* blockKind(std::uint32_t tag) {
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [&](const BlockKind& k) { return k.tag == tag; });
    return kind == std::end(kinds) ? nullptr : kind;
}

std::uint64_t BlockWalk::read(std::uint64_t offset, void* buffer, std::uint64_t count) {
    source_.seek(static_cast<std::int64_t>(offset));
    return source_.readBytes(buffer, count);
}

Block BlockWalk::decode(const std::uint8_t* bytes, std::uint64_t offset) const {
    Block block;
    block.offset = offset;
    block.tag = bigendian::load<std::uint32_t>(bytes) >> 8;
    block.version = bytes[3];
    block.length = bigendian::load<std::uint64_t>(bytes + 4, isWide_ ? 8 : 4);
    block.content = offset + headerBytes();
    return block;
}

/// What isn't there reads as 0.
Block BlockWalk::headerAt(std::uint64_t offset) {
    std::uint8_t bytes[12] = {};
    read(offset, bytes, headerBytes());
    return decode(bytes, offset);
}

void BlockWalk::run() {
    beginFile();
    while (!open_.empty()) {
        if (at_ < innermostEnd()) {
            step();
        } else {
            open_.pop_back();
        }
    }
    if (at_ < source_.size()) {
        sink_.damage(at_, std::to_string(source_.size() - at_) + " bytes follow the file block");
    }
}

void BlockWalk::beginFile() {
    Block file = headerAt(0);
    const std::uint64_t size = source_.size();
    if (file.tag != zelblock::file || size < 8) {
        sink_.damage(0, "no data-model file begins");
        if (!guessWidth()) at_ = size;
        return;
    }
    isWide_ = file.version != 0;
    file = headerAt(0);
    if (file.version > 1) {
        sink_.damage(3, "file version " + std::to_string(file.version) + " is not known");
    }
    const bool fits = file.length >= headerBytes() && file.length <= size;
    if (!fits && file.length != 0) {
        sink_.damage(4, "the file block has length " + std::to_string(file.length) + ", the file " +
                            std::to_string(size));
    } else if (size < headerBytes()) {
        sink_.damage(size, "the header of the file block is cut");
    }
    file.end = fits ? file.length : size;
    enter(file);
}

/// A file with a spoilt beginning is still of one width if a sound block follows.
bool BlockWalk::guessWidth() {
    for (const bool wide : {true, false}) {
        isWide_ = wide;
        open_ = {{source_.size(), false}};
        at_ = headerBytes();
        if (at_ < source_.size() && resumesAt(headerAt(at_))) return true;
    }
    open_.clear();
    return false;
}

void BlockWalk::enter(Block& block) {
    block.depth = static_cast<std::int32_t>(open_.size());
    const bool unended = block.length == 0;
    if (block.tag == zelblock::object) {
        std::uint8_t bytes[guidBytes];
        block.hasGuid = block.end - block.content >= guidBytes &&
                        read(block.content, bytes, guidBytes) == guidBytes;
        source_.seek(static_cast<std::int64_t>(block.content));
        if (block.hasGuid) block.guid.read(source_);
        block.content = std::min(block.content + guidBytes, block.end);
    }
    const BlockKind* kind = blockKind(block.tag);
    block.hasValue = !holdsBlocks(block.tag) && block.end - block.content >= kind->contentBytes;
    sink_.block(block);
    if (!holdsBlocks(block.tag)) {
        at_ = block.end;
        return;
    }
    open_.push_back({block.end, unended});
    at_ = std::min(block.content, block.end);
}

/// The block or the plain bytes that begin here.
void BlockWalk::step() {
    Block block = headerAt(at_);
    const std::uint64_t room = innermostEnd() - at_;
    const BlockKind* kind = blockKind(block.tag);
    const std::uint64_t least = headerBytes() + (kind ? kind->contentBytes : 0);
    if (room >= headerBytes() && block.length >= least && block.length <= room && block.tag != 0) {
        block.end = at_ + block.length;
        enter(block);
    } else if (room >= headerBytes() && isUnended(block)) {
        sink_.damage(at_, "this block was never ended");
        block.end = innermostEnd();
        enter(block);
    } else if (kind && (holdsBlocks(block.tag) || block.version == 0)) {
        misfit(block);
    } else {
        passPlain();
    }
}

/// Blocks end from the innermost outwards, so one that never did stands in one that never did.
bool BlockWalk::isUnended(const Block& block) const {
    return block.length == 0 && block.tag != 0 && open_.back().unended;
}

/// A block of a known kind whose length can't be right. Values are of version 0, which keeps most
/// bare numbers out of here.
void BlockWalk::misfit(const Block& block) {
    const std::uint64_t room = innermostEnd() - at_;
    std::string what = std::string("a block of the kind \"") + blockKind(block.tag)->name +
                       "\" has length " + std::to_string(block.length);
    Block shown = block;
    if (room < headerBytes()) {
        what = "the header of a block is cut";
    } else if (block.length > room && block.length <= source_.size() - at_) {
        sink_.damage(at_, what + " and ends behind the block that it is in");
        shown.end = innermostEnd();
        enter(shown);
        return;
    } else if (block.length > room) {
        what += " and ends behind the file";
    } else {
        what += ", too little for it";
    }
    sink_.damage(at_, what);
    passPlain();
}

void BlockWalk::passPlain() {
    const std::uint64_t next = findBlock(at_ + 1);
    sink_.plain(at_, next - at_, static_cast<std::int32_t>(open_.size()));
    at_ = next;
}

bool BlockWalk::resumesAt(const Block& block) const {
    const std::uint64_t room = innermostEnd() - block.offset;
    if (block.tag == 0 || room < headerBytes() || block.length > room) return false;
    const BlockKind* kind = blockKind(block.tag);
    if (!kind) return block.length == room;
    const std::uint64_t least = headerBytes() + kind->contentBytes;
    return holdsBlocks(block.tag) || kind->isText ? block.length >= least : block.length == least;
}

/// A tag isn't 0, so that no block begins with three bytes of a hole.
std::uint64_t BlockWalk::passHole(std::uint64_t from) const {
    const std::uint64_t data = nextData_ ? nextData_(from) : from;
    return data > from + 2 ? data - 2 : from;
}

/// The next place where a block begins beyond doubt, else the end of the innermost block. Zeros are
/// passed in large steps. Most plain stretches are short, so the window grows with the search.
std::uint64_t BlockWalk::findBlock(std::uint64_t from) {
    static constexpr std::array<std::uint8_t, 0x1000> zeros{};
    const std::uint64_t end = innermostEnd();
    std::uint64_t wanted = 0x100;
    for (from = passHole(from); from < end && end - from >= headerBytes(); from = passHole(from)) {
        const std::uint64_t got = read(from, window_.data(), std::min(wanted, end - from));
        if (got < headerBytes()) break;
        wanted = std::min<std::uint64_t>(2 * wanted, window_.size());
        const std::uint64_t last = got - headerBytes();
        for (std::uint64_t i = 0; i <= last; ++i) {
            if (last - i >= zeros.size() &&
                std::memcmp(window_.data() + i, zeros.data(), zeros.size()) == 0) {
                i += zeros.size() - 3;
            } else if (resumesAt(decode(window_.data() + i, from + i))) {
                return from + i;
            }
        }
        from += last + 1;
    }
    return end;
}

} // namespace apps
