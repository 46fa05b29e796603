// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinOutputFile: a BinOutput on a FILE of the runtime library.
#pragma once

#include "zelbasictypes/data/binoutput.h"

#include <cstdio>
#include <memory>

class KorString;

/// Writes a file. It owns the FILE, which is null when none could be opened; good() then is false.
/// The destructor closes the FILE, but what waits in the stage is lost: close or flush first.
///
/// When flushDevice() or close() returns true for a stream made from a path, everything written is
/// on the disk.
///
/// A stream made from a path gathers what it writes in a large block when there is memory for that,
/// and can move and overwrite within it without the FILE. It stops doing so once file() has handed
/// out the FILE, to which everything flushed from the stage has then been written.
class BinOutputFile : public BinOutput {
public:
    /// Makes the file, or empties an existing one. It can be read back.
    explicit BinOutputFile(const KorString& path);
    /// Takes ownership of `file`, which may be null, and doesn't move it.
    explicit BinOutputFile(std::FILE* file) : file_(file) {}
    ~BinOutputFile() override;

    bool flushDevice() override;
    bool reserved() override { return false; }
    std::uint64_t writeRaw(const void* buffer, std::uint64_t count) override;
    std::uint64_t readRaw(void* buffer, std::uint64_t count) override;
    std::int64_t tellRaw() const override;
    bool seekRaw(std::int64_t offset, bool fromStart) override;
    bool good() const override;
    bool closeRaw() override;

    /// The FILE, still owned by the stream.
    std::FILE* file();
    /// Takes ownership of another FILE. The old one isn't closed.
    void setFile(std::FILE* file);

private:
    void lendRoom();
    bool makeRoom();
    bool settle();
    bool commit();
    bool closeFile();
    void stopGathering();

    std::FILE* file_ = nullptr;
    bool commits_ = false;  ///< made from a path
    bool isOnDisk_ = false; ///< nothing came since the last commit
    /// While the stream gathers: bytes that belong at `start_`, where the FILE stands, and the
    /// stream's position among them. The stage may lie behind them.
    std::unique_ptr<std::uint8_t[]> block_;
    std::int64_t start_ = 0;
    std::uint64_t filled_ = 0;
    std::uint64_t cursor_ = 0;
};
