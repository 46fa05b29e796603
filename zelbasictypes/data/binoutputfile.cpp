// SPDX-License-Identifier: Apache-2.0
// Typed numbers into a FILE.
#include "zelbasictypes/data/binoutputfile.h"

#include "platform/file.h"
#include "zelbasictypes/files/fileoperations.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr std::uint64_t blockBytes = 0x40000;
constexpr std::uint64_t keptBytes = 0x10000;

} // namespace

BinOutputFile::BinOutputFile(const KorString& path)
    : file_(zelOpenFile(path, "w+bc")), commits_(true) {
    if (!file_) return;
    block_.reset(new (std::nothrow) std::uint8_t[blockBytes]);
    if (block_) lendRoom();
}

BinOutputFile::~BinOutputFile() {
    settle();
    closeFile();
}

bool BinOutputFile::flushDevice() {
    if (!file_) return false;
    const bool flushed = flushBuffer();
    const bool settled = settle();
    return commit() && flushed && settled && good();
}

/// Empties the FILE, and has the disk take what came since the last time.
bool BinOutputFile::commit() {
    if (!commits_ || isOnDisk_) return std::fflush(file_) == 0;
    isOnDisk_ = platform::commitStream(file_);
    return isOnDisk_;
}

std::uint64_t BinOutputFile::writeRaw(const void* buffer, std::uint64_t count) {
    if (!file_) return 0;
    isOnDisk_ = false;
    if (!block_) return std::fwrite(buffer, 1, count, file_);
    const auto* from = static_cast<const std::uint8_t*>(buffer);
    const bool inPlace = from == block_.get() + cursor_;
    if (!inPlace) takeStageBack();
    for (std::uint64_t left = count; left > 0;) {
        const std::uint64_t fitting = std::min(left, blockBytes - cursor_);
        if (!inPlace) std::memcpy(block_.get() + cursor_, from, fitting);
        from += fitting;
        left -= fitting;
        cursor_ += fitting;
        filled_ = std::max(filled_, cursor_);
        if (cursor_ == blockBytes && !makeRoom()) return 0;
    }
    lendRoom();
    return count;
}

/// Writes most of a full block. The end stays, since what was just written is what a writer comes
/// back to: a block's length is filled in when the block ends.
bool BinOutputFile::makeRoom() {
    takeStageBack();
    constexpr std::uint64_t leaving = blockBytes - keptBytes;
    const bool whole = std::fwrite(block_.get(), 1, leaving, file_) == leaving;
    std::memmove(block_.get(), block_.get() + leaving, keptBytes);
    start_ += leaving;
    filled_ = cursor_ = keptBytes;
    return whole;
}

/// What is staged next may lie where it goes, if it writes over nothing that would stay should the
/// stage never be flushed.
void BinOutputFile::lendRoom() {
    if (cursor_ == filled_ && blockBytes - cursor_ >= stageBytes)
        lendStage(block_.get() + cursor_);
    else
        takeStageBack();
}

/// The FILE is moved before and behind, as the runtime library wants it between writing and
/// reading.
std::uint64_t BinOutputFile::readRaw(void* buffer, std::uint64_t count) {
    if (!file_) return 0;
    settle();
    platform::seekStream(file_, 0, SEEK_CUR);
    const std::uint64_t got = std::fread(buffer, 1, count, file_);
    platform::seekStream(file_, 0, SEEK_CUR);
    start_ += static_cast<std::int64_t>(got);
    return got;
}

std::int64_t BinOutputFile::tellRaw() const {
    if (!file_) return 0;
    return block_ ? start_ + static_cast<std::int64_t>(cursor_) : platform::tellStream(file_);
}

bool BinOutputFile::seekRaw(std::int64_t offset, bool fromStart) {
    if (!file_) return false;
    takeStageBack();
    const auto filledEnd = start_ + static_cast<std::int64_t>(filled_);
    if (block_ && fromStart && offset >= start_ && offset <= filledEnd) {
        cursor_ = static_cast<std::uint64_t>(offset - start_);
        return true;
    }
    settle();
    platform::seekStream(file_, offset, fromStart ? SEEK_SET : SEEK_END);
    if (block_) start_ = platform::tellStream(file_);
    return true;
}

bool BinOutputFile::good() const { return file_ && !std::ferror(file_); }

bool BinOutputFile::closeRaw() {
    if (!file_) return true;
    const bool whole = settle() && commit();
    return closeFile() && whole;
}

bool BinOutputFile::closeFile() {
    block_.reset();
    return !file_ || std::fclose(std::exchange(file_, nullptr)) == 0;
}

/// Writes what was gathered and leaves the FILE where the stream is; what can't be written is lost.
bool BinOutputFile::settle() {
    takeStageBack();
    if (!file_ || !block_ || filled_ == 0) return true;
    const std::uint64_t written = std::fwrite(block_.get(), 1, filled_, file_);
    start_ += static_cast<std::int64_t>(cursor_);
    if (cursor_ != filled_) platform::seekStream(file_, start_, SEEK_SET);
    const bool whole = written == filled_;
    filled_ = cursor_ = 0;
    return whole;
}

void BinOutputFile::stopGathering() {
    settle();
    block_.reset();
}

std::FILE* BinOutputFile::file() {
    stopGathering();
    isOnDisk_ = false; // whoever gets the FILE may write
    return file_;
}

void BinOutputFile::setFile(std::FILE* file) {
    stopGathering();
    file_ = file;
    commits_ = false;
}
