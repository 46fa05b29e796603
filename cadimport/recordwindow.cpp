// SPDX-License-Identifier: Apache-2.0
// Filling the window.
#include "cadimport/recordwindow.h"

#include <cstdint>
#include <cstring>

namespace CADImport {
namespace {

constexpr int pageSize = 4096;

uchar* pageBehind(uchar* at) {
    return at + (pageSize - reinterpret_cast<std::uintptr_t>(at) % pageSize) % pageSize;
}

} // namespace

RecordWindow::RecordWindow(QIODevice& source)
    : source_(source), buffer_(new uchar[longestTake + pageSize + capacity]),
      base_(pageBehind(buffer_.get() + longestTake)), begin_(base_), end_(base_) {
    // Without Unbuffered, QIODevice would read ahead into a buffer of its own.
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

WireBytes RecordWindow::takeElements(qsizetype size, qsizetype count) {
    if (filled() < size) require(size);
    if (filled() < size) return advance(filled());
    return advance(qMin(count, filled() / size) * size);
}

void RecordWindow::skip(qint64 size) {
    while (size > 0 && hasBytes()) {
        size -= advance(static_cast<qsizetype>(qMin<qint64>(size, filled()))).size;
    }
    if (size > 0) ranOut_ = true;
}

bool RecordWindow::atEnd() const { return begin_ == end_ && (exhausted_ || source_.atEnd()); }

qint64 RecordWindow::readData(char* data, qint64 size) {
    qint64 done = 0;
    while (done < size && hasBytes()) {
        const auto some = advance(static_cast<qsizetype>(qMin<qint64>(size - done, filled())));
        std::memcpy(data + done, some.data, static_cast<std::size_t>(some.size));
        done += some.size;
    }
    if (done < size) ranOut_ = true;
    return done;
}

void RecordWindow::require(qsizetype needed) {
    refill(needed);
    if (filled() < needed) ranOut_ = true;
}

void RecordWindow::refill(qsizetype needed) {
    while (filled() < needed && fetch()) {
    }
}

/// Fills the window anew from its base, with the rest of what it held in front. So a file is read
/// in whole pages into whole pages, which the system copies in half the time.
bool RecordWindow::fetch() {
    const auto rest = filled();
    std::memmove(base_ - rest, begin_, static_cast<std::size_t>(rest));
    begin_ = base_ - rest;
    end_ = base_;
    const qint64 got = source_.read(reinterpret_cast<char*>(base_), capacity);
    exhausted_ = got <= 0;
    if (exhausted_) return false;
    end_ += got;
    fetched_ += got;
    return true;
}

} // namespace CADImport
