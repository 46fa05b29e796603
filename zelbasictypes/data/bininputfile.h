// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinInputFile: a BinInput on a FILE of the runtime library.
#pragma once

#include "zelbasictypes/data/bininput.h"

#include <cstdio>
#include <memory>

class KorString;

/// Reads a file. It owns the FILE, which is null when none could be opened; good() then is false.
///
/// A stream made from a path reads ahead in large pieces when there is memory for that. It stops
/// doing so once file() has handed out the FILE, which is then positioned where the stream is. A
/// subclass never reads ahead.
class BinInputFile : public BinInput {
public:
    /// Opens the file for reading.
    explicit BinInputFile(const KorString& path);
    /// Takes ownership of `file`, which may be null, and rewinds it.
    explicit BinInputFile(std::FILE* file);
    ~BinInputFile() override;

    std::uint64_t readRaw(void* buffer, std::uint64_t count) override;
    std::int64_t tell() const override;
    bool seek(std::int64_t offset, bool fromStart = true) override;
    bool good() const override;
    bool close() override;

    /// The FILE, still owned by the stream.
    std::FILE* file();
    /// Takes ownership of another FILE. The old one isn't closed, and the new one isn't measured.
    void setFile(std::FILE* file);

private:
    void measure();
    bool readsAhead();
    std::uint64_t readAhead(void* buffer, std::uint64_t count);
    bool fill();
    bool seekHeld(std::int64_t offset);
    /// Puts the FILE where the stream is; held bytes are forgotten.
    void settle();

    std::FILE* file_ = nullptr;
    /// While the stream reads ahead: the block that it holds bytes in, and where the FILE stands.
    std::unique_ptr<std::uint8_t[]> block_;
    std::int64_t fileOffset_ = 0;
    bool mayReadAhead_ = false;
};
