// SPDX-License-Identifier: Apache-2.0
// Filling the window.
#include "cadimport/recordwindow.h"

#include <cstring>

namespace CADImport {

RecordWindow::RecordWindow(QIODevice& source)
    : source_(source), buffer_(new uchar[capacity]), begin_(buffer_.get()), end_(begin_) {
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
    moveToFront();
    while (filled() < needed && fetch()) {
    }
}

void RecordWindow::moveToFront() {
    const auto rest = filled();
    std::memmove(buffer_.get(), begin_, static_cast<std::size_t>(rest));
    begin_ = buffer_.get();
    end_ = begin_ + rest;
}

bool RecordWindow::fetch() {
    const qint64 got = source_.read(reinterpret_cast<char*>(end_), capacity - filled());
    exhausted_ = got <= 0;
    if (exhausted_) return false;
    end_ += got;
    fetched_ += got;
    return true;
}

} // namespace CADImport
