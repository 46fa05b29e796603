// SPDX-License-Identifier: Apache-2.0
// One buffer, two directions, and the flags that keep them apart.
#include "zelbasictypes/files/zelfdstreambuf.h"

#include "zelbasictypes/files/filedevice.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

// What `state` holds. The first two are bits of the open mode.
constexpr std::int32_t forInput = zelmode::in;
constexpr std::int32_t forOutput = zelmode::out;
constexpr std::int32_t reading = 4;
constexpr std::int32_t writing = 8;

constexpr std::int64_t standardBufferSize = 1024;
constexpr std::int64_t greatestBuffer = 0x7FFFFFFF; ///< what one transfer takes

using Traits = std::char_traits<char>;

std::int32_t originOf(std::ios_base::seekdir way) {
    if (way == std::ios_base::beg) return 0;
    if (way == std::ios_base::cur) return 1;
    if (way == std::ios_base::end) return 2;
    std::abort();
}

} // namespace

ZelFdStreambuf::~ZelFdStreambuf() {
    ZelFdStreambuf::close();
    freeBuffer();
}

ZelFdStreambuf* ZelFdStreambuf::open(const KorString& path, std::int32_t mode) {
    if (isOpen()) return nullptr;
    return begin(zeldevice::open(path, zeldevice::flagsOf(mode)), mode);
}

ZelFdStreambuf* ZelFdStreambuf::open(const char* path, std::int32_t mode) {
    if (isOpen()) return nullptr;
    return begin(zeldevice::open(path, zeldevice::flagsOf(mode)), mode);
}

ZelFdStreambuf* ZelFdStreambuf::attach(std::int32_t descriptor, std::int32_t mode) {
    return isOpen() ? nullptr : begin(descriptor, mode);
}

ZelFdStreambuf* ZelFdStreambuf::begin(std::int32_t descriptor, std::int32_t mode) {
    if (descriptor == -1) return nullptr;
    fd = descriptor;
    setBufferSize(standardBufferSize);
    state = mode & (forInput | forOutput);
    emptyGetArea();
    clearPutArea();
    return this;
}

ZelFdStreambuf* ZelFdStreambuf::close() {
    if (!isOpen()) return nullptr;
    if ((state & (reading | writing)) == writing) flush();
    platform::close(fd);
    fd = -1;
    return this;
}

void ZelFdStreambuf::setBufferSize(std::int64_t bytes) {
    if (buffer || ownsBuffer || bytes < 0 || bytes > greatestBuffer) return;
    buffer = new (std::nothrow) char[static_cast<std::size_t>(bytes)];
    if (!buffer) return;
    ownsBuffer = true;
    bufferSize = bytes;
}

void ZelFdStreambuf::freeBuffer() {
    if (ownsBuffer) delete[] buffer;
    buffer = nullptr;
    bufferSize = 0;
    ownsBuffer = false;
    emptyGetArea();
    clearPutArea();
}

ZelFdStreambuf* ZelFdStreambuf::setBuffer(char* area, std::int64_t bytes) {
    freeBuffer();
    buffer = area;
    bufferSize = area ? std::min(bytes, greatestBuffer) : 0;
    emptyGetArea();
    clearPutArea();
    return this;
}

std::streamsize ZelFdStreambuf::readBlock(char* out, std::int64_t, std::streamsize count) {
    return xsgetn(out, count);
}

std::streamsize ZelFdStreambuf::readBlockInto(char* out, std::int64_t, std::streamsize count) {
    return xsgetn(out, count);
}

/// True unless the file is open for the direction `needed` and the other hasn't started.
bool ZelFdStreambuf::isRefused(std::int32_t needed, std::int32_t excluded) const {
    return !isOpen() || (state & (needed | excluded)) != needed;
}

bool ZelFdStreambuf::flush() {
    const std::streamsize waiting = pptr() - pbase();
    if (waiting == 0) return true;
    if (zeldevice::write(fd, pbase(), waiting) != waiting) return false;
    setp(pbase(), epptr());
    return true;
}

/// Begins a put area with its first character, or writes that alone where the buffer has no room.
ZelFdStreambuf::int_type ZelFdStreambuf::startPutArea(int_type c) {
    const char value = Traits::to_char_type(c);
    if (bufferSize <= 1) return zeldevice::write(fd, &value, 1) == 1 ? c : Traits::eof();
    emptyGetArea();
    setp(buffer, buffer + bufferSize - 1);
    *pptr() = value;
    pbump(1);
    return c;
}

/// The put area is one byte shorter than the buffer, so that the character which fills it up goes
/// out with the rest. After a failure that byte is taken, and nothing more goes in before the area
/// could be written.
ZelFdStreambuf::int_type ZelFdStreambuf::overflow(int_type c) {
    if (isRefused(forOutput, reading)) return Traits::eof();
    state |= writing;
    const bool isFull = pptr() > epptr();
    if (Traits::eq_int_type(c, Traits::eof()) || isFull) {
        if (!flush()) return Traits::eof();
        return isFull && !Traits::eq_int_type(c, Traits::eof()) ? startPutArea(c) : c;
    }
    if (pptr() == pbase()) return startPutArea(c);
    *pptr() = Traits::to_char_type(c);
    pbump(1);
    return flush() ? c : Traits::eof();
}

ZelFdStreambuf::int_type ZelFdStreambuf::underflow() {
    if (isRefused(forInput, writing)) return Traits::eof();
    state |= reading;
    if (gptr() == egptr()) {
        const std::streamsize got = xsgetn(buffer, bufferSize);
        if (got < 1) return Traits::eof();
        setg(buffer, buffer, buffer + got);
        clearPutArea();
    }
    return Traits::to_int_type(*gptr());
}

ZelFdStreambuf::int_type ZelFdStreambuf::uflow() {
    if (isRefused(forInput, writing)) return Traits::eof();
    char c = 0;
    return zeldevice::read(fd, &c, 1) == 1 ? Traits::to_int_type(c) : Traits::eof();
}

ZelFdStreambuf::int_type ZelFdStreambuf::pbackfail(int_type c) {
    if (!(state & (forInput | reading))) return Traits::eof();
    int_type result = Traits::eof();
    if (gptr() > eback()) {
        gbump(-1);
        result = Traits::to_int_type(*gptr());
    } else if (seekoff(-1, std::ios_base::cur) != pos_type(off_type(-1))) {
        result = underflow();
    }
    const bool differs = !Traits::eq_int_type(c, Traits::eof()) && !Traits::eq_int_type(c, result);
    return differs ? Traits::eof() : result;
}

std::streamsize ZelFdStreambuf::showmanyc() { return state & reading ? egptr() - gptr() : -1; }

std::streamsize ZelFdStreambuf::xsgetn(char* out, std::streamsize count) {
    return std::max<std::streamsize>(zeldevice::read(fd, out, count), 0);
}

std::streamsize ZelFdStreambuf::xsputn(const char* data, std::streamsize count) {
    flush();
    return zeldevice::write(fd, data, count);
}

ZelFdStreambuf::pos_type ZelFdStreambuf::seekoff(off_type offset, std::ios_base::seekdir way,
                                                 std::ios_base::openmode) {
    if (!isOpen()) return pos_type(off_type(-1));
    if (state & writing) flush();
    state &= ~(reading | writing);
    emptyGetArea();
    clearPutArea();
    return pos_type(zeldevice::seek(fd, offset, originOf(way)));
}

ZelFdStreambuf::pos_type ZelFdStreambuf::seekpos(pos_type position, std::ios_base::openmode which) {
    return seekoff(off_type(position), std::ios_base::beg, which);
}

int ZelFdStreambuf::sync() { return flush() ? 0 : -1; }
