// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinOutputFile: a BinOutput on a FILE of the runtime library.
#pragma once

#include "zelbasictypes/data/binoutput.h"

#include <cstdio>
#include <memory>

class KorString;

/// Owns the FILE, null when none could be opened. Its destruction closes the FILE, but what waits
/// in the stage is lost: close or flush first. When a stream made from a path is flushed
/// (`flushDevice`) or closed with the answer true, the disk has what was written; what only left
/// the stage is with the FILE, or still with the stream. A stream made from a path gathers what it
/// writes in a large block, if there is memory for one, inside which it can move and write again
/// without the FILE, for as long as nobody else knows that FILE; `file` hands it out with
/// everything written that left the stage.
class BinOutputFile : public BinOutput {
public:
    /// Makes the file or empties it; it can be read back.
    explicit BinOutputFile(const KorString& path);
    /// Takes `file` over, which may be null, and leaves it where it stands.
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

    std::FILE* file();
    /// Doesn't close the FILE it had.
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
