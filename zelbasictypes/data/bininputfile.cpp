// SPDX-License-Identifier: Apache-2.0
// Typed numbers out of a FILE.
#include "zelbasictypes/data/bininputfile.h"

#include "platform/file.h"
#include "zelbasictypes/files/fileoperations.h"

#include <algorithm>
#include <new>
#include <typeinfo>
#include <utility>

namespace {

constexpr std::uint64_t readAtOnce = 0x10000;

} // namespace

BinInputFile::BinInputFile(const KorString& path) : file_(zelOpenFile(path, "rb")) {
    measure();
    mayReadAhead_ = size_ > 0;
}

BinInputFile::BinInputFile(std::FILE* file) : file_(file) { measure(); }

BinInputFile::~BinInputFile() {
    if (file_) std::fclose(file_);
}

void BinInputFile::measure() {
    if (!file_ || !platform::seekStream(file_, 0, SEEK_END)) return;
    size_ = static_cast<std::uint64_t>(std::max<std::int64_t>(platform::tellStream(file_), 0));
    platform::seekStream(file_, 0, SEEK_SET);
}

/// A subclass may look at every byte that comes from the device, which held bytes would pass by.
bool BinInputFile::readsAhead() {
    if (block_) return true;
    if (!mayReadAhead_ || typeid(*this) != typeid(BinInputFile)) return false;
    block_.reset(new (std::nothrow) std::uint8_t[readAtOnce]);
    mayReadAhead_ = block_ != nullptr;
    held_ = heldEnd_ = block_.get();
    fileOffset_ = platform::tellStream(file_);
    return mayReadAhead_;
}

std::uint64_t BinInputFile::readRaw(void* buffer, std::uint64_t count) {
    if (!file_) return 0;
    return readsAhead() ? readAhead(buffer, count) : std::fread(buffer, 1, count, file_);
}

std::uint64_t BinInputFile::readAhead(void* buffer, std::uint64_t count) {
    auto* to = static_cast<std::uint8_t*>(buffer);
    std::uint64_t got = takeHeld(to, count);
    if (got == count) return got;
    if (count - got < readAtOnce) return fill() ? got + takeHeld(to + got, count - got) : got;
    const std::uint64_t direct = std::fread(to + got, 1, count - got, file_);
    fileOffset_ += static_cast<std::int64_t>(direct);
    held_ = heldEnd_ = block_.get(); // what was held lies before what came past it
    return got + direct;
}

bool BinInputFile::fill() {
    const std::uint64_t got = std::fread(block_.get(), 1, readAtOnce, file_);
    fileOffset_ += static_cast<std::int64_t>(got);
    held_ = block_.get();
    heldEnd_ = held_ + got;
    return got > 0;
}

std::int64_t BinInputFile::tell() const {
    if (!file_) return 0;
    return block_ ? fileOffset_ - static_cast<std::int64_t>(heldBytes())
                  : platform::tellStream(file_);
}

bool BinInputFile::seek(std::int64_t offset, bool fromStart) {
    if (!file_) return false;
    if (block_ && fromStart && seekHeld(offset)) return true;
    const bool moved = platform::seekStream(file_, offset, fromStart ? SEEK_SET : SEEK_END);
    if (moved && block_) {
        fileOffset_ = platform::tellStream(file_);
        held_ = heldEnd_ = block_.get();
    }
    return true;
}

/// A target not far ahead is read up to: moving the FILE costs more than the bytes in between.
bool BinInputFile::seekHeld(std::int64_t offset) {
    if (offset > fileOffset_ && offset - fileOffset_ < static_cast<std::int64_t>(readAtOnce))
        fill();
    const std::int64_t start = fileOffset_ - (heldEnd_ - block_.get());
    if (offset < start || offset > fileOffset_) return false;
    held_ = block_.get() + (offset - start);
    return true;
}

bool BinInputFile::good() const { return file_ && !std::ferror(file_); }

bool BinInputFile::close() {
    if (!file_) return true;
    held_ = heldEnd_ = nullptr;
    block_.reset();
    return std::fclose(std::exchange(file_, nullptr)) == 0;
}

void BinInputFile::settle() {
    if (file_ && block_) platform::seekStream(file_, tell(), SEEK_SET);
    held_ = heldEnd_ = nullptr;
    block_.reset();
    mayReadAhead_ = false;
}

std::FILE* BinInputFile::file() {
    settle();
    return file_;
}

void BinInputFile::setFile(std::FILE* file) {
    settle();
    file_ = file;
}
