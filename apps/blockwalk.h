// SPDX-License-Identifier: Apache-2.0
// Walks the blocks of a data-model file, sound or not, from its first byte to its last.
//
// Numbers stand in a file without a frame, so that only plausibility tells blocks from plain bytes:
// where a block may begin, one of a known kind is taken as such, and one of another kind when it
// fits what it stands in. Behind plain bytes the walk goes on at the next block of a known kind, or
// at one that ends where the block around it ends.
#pragma once

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/zelguid.h"

#include <functional>
#include <string>
#include <vector>

namespace apps {

struct BlockKind {
    std::uint32_t tag;
    const char* name;
    std::uint32_t contentBytes; ///< the least that it holds
    bool isText;
};
/// Null for a tag that isn't the format's own.
const BlockKind* blockKind(std::uint32_t tag);

struct Block {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;  ///< as it stands in the file; 0 for one that was never ended
    std::uint64_t end = 0;     ///< where its content ends as far as it is walked
    std::uint64_t content = 0; ///< where it begins, behind header and identifier
    std::uint32_t tag = 0;
    std::uint32_t version = 0;
    std::int32_t depth = 0;
    bool hasValue = false; ///< of a kind that holds one value, and whole
    bool hasGuid = false;
    ZelGuid guid;
};

/// What a walk meets, in the order of the file.
class BlockSink {
public:
    virtual ~BlockSink() = default;
    virtual void block(const Block& block) = 0;
    virtual void plain(std::uint64_t offset, std::uint64_t length, std::int32_t depth) = 0;
    /// What at that byte makes no sense.
    virtual void damage(std::uint64_t offset, const std::string& what) = 0;
};

/// Uses memory for the blocks that are open, and time for each byte once.
class BlockWalk {
public:
    /// Where from an offset on there may be anything but zeros, or behind the source.
    using NextData = std::function<std::uint64_t(std::uint64_t)>;

    BlockWalk(BinInput& source, BlockSink& sink, NextData nextData = {})
        : source_(source), sink_(sink), nextData_(std::move(nextData)) {}
    void run();

private:
    struct Open {
        std::uint64_t end;
        bool unended;
    };

    void beginFile();
    bool guessWidth();
    void step();
    void enter(Block& block);
    void passPlain();
    void misfit(const Block& block);
    bool isUnended(const Block& block) const;
    bool resumesAt(const Block& block) const;

    Block headerAt(std::uint64_t offset);
    Block decode(const std::uint8_t* bytes, std::uint64_t offset) const;
    std::uint64_t read(std::uint64_t offset, void* buffer, std::uint64_t count);
    std::uint32_t headerBytes() const { return isWide_ ? 12 : 8; }
    std::uint64_t innermostEnd() const { return open_.back().end; }
    std::uint64_t findBlock(std::uint64_t from);
    std::uint64_t passHole(std::uint64_t from) const;

    BinInput& source_;
    BlockSink& sink_;
    NextData nextData_;
    std::vector<Open> open_;
    std::vector<std::uint8_t> window_ = std::vector<std::uint8_t>(0x10000);
    std::uint64_t at_ = 0;
    bool isWide_ = true;
};

} // namespace apps
