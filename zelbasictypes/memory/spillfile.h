// SPDX-License-Identifier: Apache-2.0
/// @file
/// The temporary file that holds a block while the heap makes room for a larger one.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <cstdint>

/// A temporary file. Each step is false when it failed. The file is deleted when it is closed, at
/// the latest by the destructor.
class ZelSpillFile {
public:
    ZelSpillFile() = default;
    ZelSpillFile(const ZelSpillFile&) = delete;
    ZelSpillFile& operator=(const ZelSpillFile&) = delete;
    ~ZelSpillFile() { close(); }

    /// Chooses a name, creates the file, and writes `bytes` bytes.
    /// @{
    bool findName();
    bool open();
    bool write(const void* block, std::int64_t bytes);
    /// @}
    /// Reads from the start of the file.
    bool readBack(void* block, std::int64_t bytes);
    /// Closes and deletes the file.
    void close();

private:
    KorString name;
    std::int32_t file = -1;
};
