// SPDX-License-Identifier: Apache-2.0
// A stream buffer over a file descriptor of the platform, with wide paths.
//
// Blocks go straight to the device and back; only single characters pass through the buffer, which
// serves one direction at a time. After a character read a character write fails, and the other way
// round, until a seek; blocks are never refused. A block read takes no notice of characters that
// wait in the buffer, so the two aren't mixed without a seek.
#pragma once

#include "zelbasictypes/files/zelopenmode.h"
#include "zelbasictypes/text/korstring.h"

#include <cstdint>
#include <streambuf>

class ZelFdStreambuf : public std::basic_streambuf<char> {
public:
    ZelFdStreambuf() = default;
    ZelFdStreambuf(const ZelFdStreambuf&) = delete;
    ZelFdStreambuf& operator=(const ZelFdStreambuf&) = delete;
    /// Closes. Whether the last characters could be written is lost here; close beforehand to know.
    ~ZelFdStreambuf() override;

    /// `mode` is of zelmode, with `in` or `out` at least. Output creates a missing file, and alone
    /// it truncates. Null when this buffer is open already, which then stays as it is, or when the
    /// file couldn't be opened.
    ZelFdStreambuf* open(const KorString& path, std::int32_t mode);
    ZelFdStreambuf* open(const char* path, std::int32_t mode);
    /// Takes over an open descriptor.
    ZelFdStreambuf* attach(std::int32_t descriptor, std::int32_t mode);
    /// Writes what waits. Null when not open.
    ZelFdStreambuf* close();
    bool isOpen() const { return fd != -1; }

    /// In effect only before the first open, and for 0 to 0x7FFFFFFF bytes that there is memory
    /// for; 1024 bytes otherwise.
    void setBufferSize(std::int64_t bytes);
    /// Drops what waits, and the buffer, which is freed when it is our own. Without a buffer single
    /// characters are written one by one and not read but by `sbumpc`.
    void freeBuffer();
    /// `area` stays the caller's and must outlive its use here. What waits is dropped.
    virtual ZelFdStreambuf* setBuffer(char* area, std::int64_t bytes);

    /// As `sgetn`: the number read, 0 also on failure. Both read `count` bytes into memory that has
    /// room for them, whatever `capacity` says.
    virtual std::streamsize readBlock(char* out, std::int64_t capacity, std::streamsize count);
    virtual std::streamsize readBlockInto(char* out, std::int64_t capacity, std::streamsize count);

protected:
    int_type overflow(int_type c = traits_type::eof()) override;
    int_type pbackfail(int_type c = traits_type::eof()) override;
    std::streamsize showmanyc() override;
    int_type underflow() override;
    int_type uflow() override;
    std::streamsize xsgetn(char* out, std::streamsize count) override;
    std::streamsize xsputn(const char* data, std::streamsize count) override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                     std::ios_base::openmode which = std::ios_base::in |
                                                     std::ios_base::out) override;
    pos_type seekpos(pos_type position,
                     std::ios_base::openmode which = std::ios_base::in |
                                                     std::ios_base::out) override;
    int sync() override;

private:
    ZelFdStreambuf* begin(std::int32_t descriptor, std::int32_t mode);
    bool flush();
    int_type startPutArea(int_type c);
    bool isRefused(std::int32_t needed, std::int32_t excluded) const;
    void emptyGetArea() { setg(buffer, buffer, buffer); }
    void clearPutArea() { setp(nullptr, nullptr); }

    bool ownsBuffer = false;
    std::int32_t fd = -1;
    std::int32_t state = 0;
    std::int64_t bufferSize = 0;
    char* buffer = nullptr;
};
