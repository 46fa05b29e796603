// SPDX-License-Identifier: Apache-2.0
// Lists on the wire, and the two places that bytes are taken from.
#include "cadimport/wire.h"

#include "cadimport/wordcopy.h"

#include <typeinfo>

namespace CADImport {
namespace {

/// A list of lists or texts, each of its own size, may be made this long before they are seen.
constexpr qsizetype elementsReserved = 256;

/// The element at `index`, which is at most one behind the last.
template <class List> typename List::value_type& elementAt(List& list, qsizetype index) {
    if (index == list.size()) list.append(typename List::value_type());
    return list[static_cast<int>(index)];
}

template <class List> void cutAt(List& list, qsizetype size) {
    if (list.size() > size) list.erase(list.begin() + size, list.end());
}

/// Puts `count` numbers that lie at `bytes` into the list from `index` on. The whole run is swapped
/// at once where the list keeps its elements side by side.
template <class Number>
void put(QList<Number>& list, qsizetype index, const uchar* bytes, qsizetype count) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    using Word = typename WireWord<Number>::Type;
    constexpr auto wordsEach = static_cast<qsizetype>(sizeof(Number) / sizeof(Word));
    const auto size = index + count;
    if (index == 0 && list.capacity() < size) {
        list = QList<Number>(size); // not resize, which would take more than that
    } else if (list.size() < size) {
        list.resize(size);
    }
    copyWords(bytes, count * wordsEach, reinterpret_cast<Word*>(list.data() + index));
#else
    WholeBytes whole{bytes};
    for (qsizetype i = 0; i < count; ++i) decode(whole, elementAt(list, index + i));
#endif
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

/// Whether the data ends behind the elements done, of which there is one at least.
bool WireReader::endsBehind(qsizetype done) {
    if (done == 0) return false;
    if (!window_) return stream_.atEnd();
    if (window_->hasBytes()) return false;
    window_->setRanOut();
    return true;
}

template <class Number> void WireReader::numberList(QList<Number>& list) {
    constexpr auto size = wireSize<Number>;
    qsizetype done = 0;
    for (qsizetype missing = count(); missing > 0 && !endsBehind(done);) {
        const WireBytes bytes = takeElements(size, missing);
        const auto whole = bytes.size / size;
        put(list, done, bytes.data, whole);
        done += whole;
        missing -= whole;
        if (bytes.size == 0 || bytes.size % size != 0) {
            CutBytes cut{bytes.data + whole * size, bytes.data + bytes.size};
            decode(cut, elementAt(list, done++));
            break;
        }
    }
    cutAt(list, done);
}

template <class List, class Read> void WireReader::elementList(List& list, Read read) {
    qsizetype done = 0;
    qsizetype missing = count();
    list.reserve(static_cast<int>(qBound(qsizetype(0), missing, elementsReserved)));
    for (; missing > 0 && !endsBehind(done); --missing) read(elementAt(list, done++));
    cutAt(list, done);
}

void WireReader::list(QList<int>& numbers) { numberList(numbers); }
void WireReader::list(QList<double>& numbers) { numberList(numbers); }
void WireReader::list(QList<ControlPoint>& points) { numberList(points); }
void WireReader::list(QList<QList<ControlPoint>>& rows) {
    elementList(rows, [this](QList<ControlPoint>& row) { numberList(row); });
}
void WireReader::list(QList<QString>& words) {
    elementList(words, [this](QString& word) { text(word); });
}

void WireReader::text(QString& text) {
    constexpr quint32 lengthOfNull = 0xFFFFFFFF;
    const auto bytes = static_cast<quint32>(count());
    if (bytes == 0) {
        text = QLatin1String("");
    } else if (bytes == lengthOfNull || bytes % 2 != 0 || !letters(text, bytes / 2)) {
        text = QString();
    }
}

/// False when fewer than `count` are there; they are taken all the same.
bool WireReader::letters(QString& text, qsizetype count) {
    constexpr auto size = static_cast<qsizetype>(sizeof(quint16));
    text.resize(0);
    for (qsizetype missing = count; missing > 0;) {
        const WireBytes bytes = takeElements(size, missing);
        const auto done = text.size();
        const auto whole = bytes.size / size;
        if (whole == 0) return false;
        text.resize(static_cast<int>(done + whole));
        qFromBigEndian<quint16>(bytes.data, whole, text.data() + done);
        missing -= whole;
    }
    return true;
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
