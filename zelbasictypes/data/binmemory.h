// SPDX-License-Identifier: Apache-2.0
/// @file
/// Streams on memory.
#pragma once

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binoutput.h"

#include <vector>

/// Reads `count` bytes at `bytes`, which stay the caller's and must outlive the stream.
class BinInputMemory final : public BinInput {
public:
    /// Reads these bytes.
    /// @{
    BinInputMemory(const void* bytes, std::uint64_t count);
    explicit BinInputMemory(const std::vector<std::uint8_t>& bytes)
        : BinInputMemory(bytes.data(), bytes.size()) {}
    /// @}
    explicit BinInputMemory(std::vector<std::uint8_t>&&) = delete;

    std::uint64_t readRaw(void* buffer, std::uint64_t count) override;
    std::int64_t tell() const override;
    bool seek(std::int64_t offset, bool fromStart = true) override;
    bool good() const override { return bytes_; }
    bool close() override;

private:
    const std::uint8_t* bytes_;
    /// Behind the end: how far.
    std::int64_t beyond_ = 0;
};

/// Writes to memory that the stream owns. A write that finds no memory takes no bytes.
class BinOutputMemory final : public BinOutput {
public:
    /// Everything written and flushed so far.
    const std::vector<std::uint8_t>& bytes() const { return bytes_; }

    bool flushDevice() override { return flushBuffer(); }
    std::uint64_t writeRaw(const void* buffer, std::uint64_t count) override;
    std::uint64_t readRaw(void* buffer, std::uint64_t count) override;
    std::int64_t tellRaw() const override { return open_ ? static_cast<std::int64_t>(at_) : 0; }
    /// A position before the start is refused, as a file does: nothing moves.
    bool seekRaw(std::int64_t offset, bool fromStart) override;
    bool good() const override { return open_; }
    /// Closes the stream; the bytes stay.
    bool closeRaw() override;

private:
    bool makeRoom(std::uint64_t size);

    std::vector<std::uint8_t> bytes_;
    std::uint64_t at_ = 0;
    bool open_ = true;
};
