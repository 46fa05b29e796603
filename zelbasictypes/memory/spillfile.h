// SPDX-License-Identifier: Apache-2.0
/// @file
/// The temporary file that keeps a block while the heap makes room for a greater one.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <cstdint>

/// Each step is false when it failed. The file goes when it is closed, at the latest here.
class ZelSpillFile {
public:
    ZelSpillFile() = default;
    ZelSpillFile(const ZelSpillFile&) = delete;
    ZelSpillFile& operator=(const ZelSpillFile&) = delete;
    ~ZelSpillFile() { close(); }

    bool findName();
    bool open();
    bool write(const void* block, std::int64_t bytes);
    /// From the start of the file.
    bool readBack(void* block, std::int64_t bytes);
    void close();

private:
    KorString name;
    std::int32_t file = -1;
};
