// SPDX-License-Identifier: Apache-2.0
/// @file
/// The three file streams of the library, over ZelFdStreambuf.
#pragma once

#include "zelbasictypes/files/zelfdstreambuf.h"

#include <istream>
#include <ostream>

/// A standard stream on a file. `mode` is of zelmode. A failed open sets failbit and badbit; the
/// stream may then be opened again. One thread at a time may use it.
template <class Stream> class ZelFileStream : public Stream {
public:
    ZelFileStream() : Stream(nullptr) { this->rdbuf(&file); }
    /// Opens the file.
    /// @{
    ZelFileStream(const KorString& path, std::int32_t mode) : ZelFileStream() { open(path, mode); }
    ZelFileStream(const char* path, std::int32_t mode) : ZelFileStream() { open(path, mode); }
    /// @}

    /// Opens the file, unless one is open.
    /// @{
    void open(const KorString& path, std::int32_t mode) { note(file.open(path, mode)); }
    void open(const char* path, std::int32_t mode) { note(file.open(path, mode)); }
    /// @}
    /// Writes what is waiting and closes the file.
    void close() { file.close(); }
    /// Whether a file is open.
    bool isOpen() const { return file.isOpen(); }

private:
    void note(const ZelFdStreambuf* opened) {
        if (!opened) this->setstate(std::ios_base::failbit | std::ios_base::badbit);
    }

    ZelFdStreambuf file;
};

/// A file stream for reading, writing or both.
/// @{
using ZelIfstream = ZelFileStream<std::basic_istream<char>>;
using ZelOfstream = ZelFileStream<std::basic_ostream<char>>;
using ZelFstream = ZelFileStream<std::basic_iostream<char>>;
/// @}
