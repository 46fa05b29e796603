// SPDX-License-Identifier: Apache-2.0
/// @file
/// A stream buffer over a file descriptor of the platform, with wide paths.
#pragma once

#include "zelbasictypes/files/zelopenmode.h"
#include "zelbasictypes/text/korstring.h"

#include <cstdint>
#include <streambuf>

/// Reads and writes a file. Blocks go directly to the file; only single characters pass through the
/// buffer, which serves one direction at a time. After a character was read, writing a character
/// fails until the next seek, and the reverse. Blocks are never refused. Reading a block ignores
/// characters waiting in the buffer, so don't mix the two without a seek.
///
/// The buffer owns its descriptor. One thread at a time may use it.
class ZelFdStreambuf : public std::basic_streambuf<char> {
public:
    ZelFdStreambuf() = default;
    ZelFdStreambuf(const ZelFdStreambuf&) = delete;
    ZelFdStreambuf& operator=(const ZelFdStreambuf&) = delete;
    /// Closes the file. A failure to write the last characters goes unnoticed here; call close() to
    /// know.
    ~ZelFdStreambuf() override;

    /// Opens a file. `mode` is of zelmode and includes at least `in` or `out`. Output creates a
    /// missing file; output alone truncates. Null when the file can't be opened, or when this
    /// buffer is open already, which then stays as it is.
    /// @{
    ZelFdStreambuf* open(const KorString& path, std::int32_t mode);
    ZelFdStreambuf* open(const char* path, std::int32_t mode);
    /// @}
    /// Takes ownership of an open descriptor. Null, with the descriptor left to the caller, when
    /// this buffer is open already or the descriptor is -1.
    ZelFdStreambuf* attach(std::int32_t descriptor, std::int32_t mode);
    /// Writes the waiting characters and closes the file. Null when not open.
    ZelFdStreambuf* close();
    /// Whether there is a file.
    bool isOpen() const { return fd != -1; }

    /// Sets the size of the buffer, from 0 to 0x7FFFFFFF bytes. It takes effect only before the
    /// first open, and only when there is memory for it; otherwise the size is 1024 bytes.
    void setBufferSize(std::int64_t bytes);
    /// Drops waiting characters and the buffer, which is freed when it is our own. Without a
    /// buffer, single characters are written one by one, and only `sbumpc` reads them.
    void freeBuffer();
    /// Uses `area` as the buffer. It stays the caller's and must outlive its use here. Waiting
    /// characters are dropped.
    virtual ZelFdStreambuf* setBuffer(char* area, std::int64_t bytes);

    /// As `sgetn`: the number of bytes read, 0 also on failure. Both read `count` bytes into `out`,
    /// whatever `capacity` says.
    /// @{
    virtual std::streamsize readBlock(char* out, std::int64_t capacity, std::streamsize count);
    virtual std::streamsize readBlockInto(char* out, std::int64_t capacity, std::streamsize count);
    /// @}

protected:
    /// As std::basic_streambuf requires.
    /// @{
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
    /// @}

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
