// SPDX-License-Identifier: Apache-2.0
// Streams in memory, and devices that deliver in pieces, refuse, and note what they were asked for.
#pragma once

#include "tests/zelbasictypes/bytes.h"
#include "zelbasictypes/data/binmemory.h"

#include <gtest/gtest.h>

#include <algorithm>

/// What stands in a stream once `write` has gone well.
template <class Write> Bytes writtenBy(Write write, std::uint32_t version = 0) {
    BinOutputMemory out;
    out.setVersion(version);
    EXPECT_TRUE(write(out));
    out.flushBuffer();
    return out.bytes();
}

/// Gives at most `portion` bytes a call, and holds none ahead.
class PortionInput : public BinInput {
public:
    PortionInput(Bytes source, std::uint64_t portion)
        : source_(std::move(source)), memory_(source_), portion_(portion) {
        size_ = source_.size();
    }
    std::uint64_t readRaw(void* buffer, std::uint64_t count) override {
        asked_.push_back(count);
        return memory_.readRaw(buffer, std::min(count, portion_));
    }
    std::int64_t tell() const override { return memory_.tell(); }
    bool seek(std::int64_t offset, bool fromStart = true) override {
        return memory_.seek(offset, fromStart);
    }
    bool good() const override { return memory_.good(); }
    bool close() override { return memory_.close(); }

    const std::vector<std::uint64_t>& asked() const { return asked_; }

private:
    Bytes source_;
    BinInputMemory memory_;
    std::uint64_t portion_;
    std::vector<std::uint64_t> asked_;
};

/// Notes the length of each write; takes nothing while it refuses.
class ScriptedOutput : public BinOutput {
public:
    std::uint64_t writeRaw(const void* buffer, std::uint64_t count) override {
        if (refuses) return 0;
        writes.push_back(count);
        const auto* from = static_cast<const std::uint8_t*>(buffer);
        bytes.insert(bytes.end(), from, from + count);
        return count;
    }
    std::uint64_t readRaw(void*, std::uint64_t) override { return 0; }
    std::int64_t tellRaw() const override { return static_cast<std::int64_t>(bytes.size()); }
    bool seekRaw(std::int64_t, bool) override { return true; }
    bool good() const override { return true; }
    bool closeRaw() override { return true; }

    bool refuses = false;
    std::vector<std::uint64_t> writes;
    Bytes bytes;
};
