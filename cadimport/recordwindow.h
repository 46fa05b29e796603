// SPDX-License-Identifier: Apache-2.0
/// @file
/// RecordWindow: a device that passes another one's bytes through a window of memory, where a
/// decoder may look at them in place.
#pragma once

#include <QIODevice>

#include <memory>

namespace CADImport {

/// A run of bytes in somebody's buffer.
struct WireBytes {
    const uchar* data;
    qsizetype size;
};

/// To a QDataStream it is an ordinary sequential device; WireReader recognises it and takes the
/// bytes where they lie. Both ways can be mixed. The source outlives the window.
class RecordWindow final : public QIODevice {
public:
    static constexpr qsizetype capacity = 256 * 1024;
    /// What may be asked for in one piece.
    static constexpr qsizetype longestTake = 4096;

    explicit RecordWindow(QIODevice& source);

    /// The next `size` bytes, at most `longestTake`; fewer only at the end of the source. They are
    /// consumed, and stay where they are until the next call.
    WireBytes take(qsizetype size) {
        if (filled() < size) require(size);
        return advance(qMin(size, filled()));
    }
    /// The next whole elements of `size` bytes each, at least one and at most `count`: as many as
    /// the window holds. At the end of the source the rest that makes no whole element, or nothing.
    WireBytes takeElements(qsizetype size, qsizetype count);
    /// Consumes `size` bytes, fewer at the end of the source.
    void skip(qint64 size);

    /// Asks the source when the window is empty.
    bool hasBytes() {
        if (begin_ == end_) refill(1);
        return begin_ != end_;
    }
    qint64 consumed() const { return fetched_ - filled(); }
    /// True once somebody wanted more bytes than there were.
    bool ranOut() const { return ranOut_; }
    /// For those who see the end without asking for more.
    void setRanOut() { ranOut_ = true; }

    bool isSequential() const override { return true; }
    bool atEnd() const override;
    qint64 bytesAvailable() const override { return filled(); }

protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    qsizetype filled() const { return end_ - begin_; }
    WireBytes advance(qsizetype size) {
        const WireBytes taken{begin_, size};
        begin_ += size;
        return taken;
    }
    void require(qsizetype needed);
    void refill(qsizetype needed);
    bool fetch();

    QIODevice& source_;
    std::unique_ptr<uchar[]> buffer_;
    uchar* const base_; // of a page
    uchar* begin_;
    uchar* end_;
    qint64 fetched_ = 0;
    bool exhausted_ = false;
    bool ranOut_ = false;
};

} // namespace CADImport
