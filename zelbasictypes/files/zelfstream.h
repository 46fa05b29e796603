// SPDX-License-Identifier: Apache-2.0
// The three file streams of the library, over ZelFdStreambuf.
#pragma once

#include "zelbasictypes/files/zelfdstreambuf.h"

#include <istream>
#include <ostream>

/// What the three have in common. `mode` is of zelmode. A failed open sets failbit and badbit, and
/// the stream may be opened anew.
template <class Stream> class ZelFileStream : public Stream {
public:
    ZelFileStream() : Stream(nullptr) { this->rdbuf(&file); }
    ZelFileStream(const KorString& path, std::int32_t mode) : ZelFileStream() { open(path, mode); }
    ZelFileStream(const char* path, std::int32_t mode) : ZelFileStream() { open(path, mode); }

    void open(const KorString& path, std::int32_t mode) { note(file.open(path, mode)); }
    void open(const char* path, std::int32_t mode) { note(file.open(path, mode)); }
    void close() { file.close(); }
    bool isOpen() const { return file.isOpen(); }

private:
    void note(const ZelFdStreambuf* opened) {
        if (!opened) this->setstate(std::ios_base::failbit | std::ios_base::badbit);
    }

    ZelFdStreambuf file;
};

using ZelIfstream = ZelFileStream<std::basic_istream<char>>;
using ZelOfstream = ZelFileStream<std::basic_ostream<char>>;
using ZelFstream = ZelFileStream<std::basic_iostream<char>>;
