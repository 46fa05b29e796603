// SPDX-License-Identifier: Apache-2.0
/// @file
/// RecordWindow: a device that passes the bytes of another one through a window of memory, where a
/// decoder can look at them in place.
#pragma once

#include <QIODevice>

#include <memory>

namespace CADImport {

/// A run of bytes in a buffer that belongs to someone else.
struct WireBytes {
    /// The bytes; their lifetime is told by the call that returns them.
    /// @{
    const uchar* data;
    qsizetype size;
    /// @}
};

/// A sequential device for a QDataStream. WireReader recognises it and takes bytes directly from
/// the window. Both ways may be mixed. One thread uses a window; the source must outlive it.
class RecordWindow final : public QIODevice {
public:
    static constexpr qsizetype capacity = 256 * 1024; ///< bytes in the window
    /// The longest piece that `take` returns.
    static constexpr qsizetype longestTake = 4096;

    /// Reads from the position of `source`.
    explicit RecordWindow(QIODevice& source);

    /// The next `size` bytes, at most `longestTake`; fewer only at the end of the source. They are
    /// consumed, and valid until the next call.
    WireBytes take(qsizetype size) {
        if (filled() < size) require(size);
        return advance(qMin(size, filled()));
    }
    /// The next whole elements of `size` bytes each: as many as the window holds, at least one and
    /// at most `count`. At the end of the source, the rest that makes no whole element, or nothing.
    WireBytes takeElements(qsizetype size, qsizetype count);
    /// Consumes `size` bytes, fewer at the end of the source.
    void skip(qint64 size);

    /// Whether bytes are left; refills an empty window.
    bool hasBytes() {
        if (begin_ == end_) refill(1);
        return begin_ != end_;
    }
    /// The number of bytes consumed.
    qint64 consumed() const { return fetched_ - filled(); }
    /// True once more bytes were requested than there were.
    bool ranOut() const { return ranOut_; }
    /// Sets that mark, for a caller who sees the end without requesting more.
    void setRanOut() { ranOut_ = true; }

    /// As QIODevice requires.
    /// @{
    bool isSequential() const override { return true; }
    bool atEnd() const override;
    qint64 bytesAvailable() const override { return filled(); }
    /// @}

protected:
    /// As QIODevice requires. Writing fails.
    /// @{
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char*, qint64) override { return -1; }
    /// @}

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
