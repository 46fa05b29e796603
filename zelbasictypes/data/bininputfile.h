// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinInputFile: a BinInput on a FILE of the runtime library.
#pragma once

#include "zelbasictypes/data/bininput.h"

#include <cstdio>
#include <memory>

class KorString;

/// Owns the FILE, null when none could be opened. A stream made from a path reads ahead in large
/// pieces, if there is memory for one, for as long as nobody else knows its FILE and no subclass
/// stands between: then `file` hands the FILE out standing where the stream stands.
class BinInputFile : public BinInput {
public:
    explicit BinInputFile(const KorString& path);
    /// Takes `file` over, which may be null, and puts it at its start.
    explicit BinInputFile(std::FILE* file);
    ~BinInputFile() override;

    std::uint64_t readRaw(void* buffer, std::uint64_t count) override;
    std::int64_t tell() const override;
    bool seek(std::int64_t offset, bool fromStart = true) override;
    bool good() const override;
    bool close() override;

    std::FILE* file();
    /// Neither closes the FILE it had nor measures the new one.
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
