// SPDX-License-Identifier: Apache-2.0
// Lists on the wire, and the two places that bytes are taken from.
#include "cadimport/wire.h"

#include <typeinfo>

namespace CADImport {
namespace {

/// A list of lists or texts, each of its own size, may be made this long before they are seen.
constexpr int elementsReserved = 256;

/// Appends `count` numbers that lie at `bytes`. The whole run is swapped at once where the list
/// keeps its elements side by side.
template <class Number> void append(QList<Number>& list, const uchar* bytes, qsizetype count) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    using Word = typename WireWord<Number>::Type;
    constexpr auto wordsEach = static_cast<qsizetype>(sizeof(Number) / sizeof(Word));
    const auto before = list.size();
    if (before == 0) {
        list = QList<Number>(count); // not resize, which would take more than that
    } else {
        list.resize(before + count);
    }
    qFromBigEndian<Word>(bytes, count * wordsEach, list.data() + before);
#else
    WholeBytes whole{bytes};
    for (qsizetype i = 0; i < count; ++i) {
        Number number;
        decode(whole, number);
        list.append(number);
    }
#endif
}

template <class Number> void appendCut(QList<Number>& list, WireBytes bytes) {
    CutBytes cut{bytes.data, bytes.data + bytes.size};
    Number number;
    decode(cut, number);
    list.append(number);
}

} // namespace

WireReader::WireReader(QDataStream& stream) : stream_(stream), window_(nullptr) {
    QIODevice* device = stream.device();
    // A cast would look at more than the one class that counts.
    if (device && typeid(*device) == typeid(RecordWindow)) {
        window_ = static_cast<RecordWindow*>(device);
    }
}

WireBytes WireReader::copy(qsizetype size) {
    const int got = stream_.readRawData(reinterpret_cast<char*>(scratch_), static_cast<int>(size));
    return {scratch_, qMax(got, 0)};
}

WireBytes WireReader::takeElements(qsizetype size, qsizetype count) {
    if (window_) return window_->takeElements(size, count);
    return copy(qMin(count, scratchSize / size) * size);
}

int WireReader::count() {
    int count;
    run(count);
    return count;
}

/// Whether the data ends here although elements are missing.
bool WireReader::endsBefore(qsizetype missing) {
    if (missing == 0) return false;
    if (!window_) return stream_.atEnd();
    if (window_->hasBytes()) return false;
    window_->setRanOut();
    return true;
}

template <class Number> void WireReader::numberList(QList<Number>& list) {
    constexpr auto size = wireSize<Number>;
    list.clear();
    for (qsizetype missing = count(); missing > 0;) {
        const WireBytes bytes = takeElements(size, missing);
        const auto whole = bytes.size / size;
        if (whole > 0) append(list, bytes.data, whole);
        if (bytes.size % size != 0 || whole == 0) {
            return appendCut(list, {bytes.data + whole * size, bytes.size % size});
        }
        missing -= whole;
        if (endsBefore(missing)) return;
    }
}

template <class List, class ReadLast> void WireReader::elementList(List& list, ReadLast readLast) {
    list.clear();
    int missing = count();
    list.reserve(qBound(0, missing, elementsReserved));
    for (; missing > 0; --missing) {
        list.append(typename List::value_type());
        readLast(list.last());
        if (endsBefore(missing - 1)) return;
    }
}

void WireReader::list(QList<int>& numbers) { numberList(numbers); }
void WireReader::list(QList<double>& numbers) { numberList(numbers); }
void WireReader::list(QList<ControlPoint>& points) { numberList(points); }
void WireReader::list(QList<QList<ControlPoint>>& rows) {
    elementList(rows, [this](QList<ControlPoint>& row) { numberList(row); });
}
void WireReader::list(QList<QString>& words) {
    elementList(words, [this](QString& word) { stream_ >> word; });
}

template <class Number> void WireWriter::numberList(const QList<Number>& list) {
    run(static_cast<int>(list.size()));
    uchar chunk[128 * sizeof(Number)];
    uchar* at = chunk;
    for (const Number& number : list) {
        encode(at, number);
        if (at == std::end(chunk)) {
            put(chunk, at);
            at = chunk;
        }
    }
    put(chunk, at);
}

void WireWriter::put(const uchar* begin, const uchar* end) {
    stream_.writeRawData(reinterpret_cast<const char*>(begin), static_cast<int>(end - begin));
}

void WireWriter::list(const QList<int>& numbers) { numberList(numbers); }
void WireWriter::list(const QList<double>& numbers) { numberList(numbers); }
void WireWriter::list(const QList<ControlPoint>& points) { numberList(points); }
void WireWriter::list(const QList<QList<ControlPoint>>& rows) {
    run(static_cast<int>(rows.size()));
    for (const QList<ControlPoint>& row : rows) numberList(row);
}
void WireWriter::list(const QList<QString>& words) {
    run(static_cast<int>(words.size()));
    for (const QString& word : words) stream_ << word;
}

} // namespace CADImport
