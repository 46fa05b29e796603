// SPDX-License-Identifier: Apache-2.0
/// @file
/// How the fields of a body become bytes and back.
///
/// A message passes consecutive fields of fixed size to `run`, and each list to `list`. A
/// WireReader takes a run with one check of what is there, and the numbers of a list in large
/// pieces. At the end of the data the result is that of reading value by value: a number that is
/// incomplete reads as 0, and so does everything after it.
///
/// A list is read by one rule. A count of 0 or below empties it. Otherwise elements are read until
/// the count is reached or the stream is at its end directly after an element. What is allocated
/// therefore grows with the bytes that exist, whatever the count says. Previous content is
/// overwritten in place, so that an object that is reused stops allocating.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/recordwindow.h"

#include <QDataStream>
#include <QList>
#include <QString>
#include <QtEndian>

#include <array>
#include <bit>
#include <type_traits>

namespace CADImport {

/// The unsigned number that carries a field's bytes: a field is one or several of them in a row.
template <class Field> struct WireWord {
    using Type = quint64; ///< by size
};
template <> struct WireWord<int> { using Type = quint32; };
template <> struct WireWord<std::array<int, 2>> { using Type = quint32; };
template <> struct WireWord<bool> { using Type = quint8; };

/// All fields of fixed size are as long on the wire as in memory.
template <class... Fields>
constexpr qsizetype wireSize = static_cast<qsizetype>((sizeof(Fields) + ... + 0));

/// The words of a field, in order.
template <class Field>
using WireWords = std::array<typename WireWord<Field>::Type,
                             sizeof(Field) / sizeof(typename WireWord<Field>::Type)>;

/// Reads numbers from bytes known to be enough.
struct WholeBytes {
    const uchar* at; ///< the next byte

    /// The next number.
    template <class Word> Q_ALWAYS_INLINE Word next() {
        const Word word = qFromBigEndian<Word>(at);
        at += sizeof(Word);
        return word;
    }
};

/// Reads numbers from bytes that may end within one; that number and all after it are 0.
struct CutBytes {
    const uchar* at;  ///< the next byte
    const uchar* end; ///< after the last byte

    /// The next number, or 0.
    template <class Word> Q_ALWAYS_INLINE Word next() {
        if (end - at < static_cast<qptrdiff>(sizeof(Word))) {
            at = end;
            return 0;
        }
        WholeBytes whole{at};
        at += sizeof(Word);
        return whole.next<Word>();
    }
};

/// Reads one field.
template <class Source, class Field> Q_ALWAYS_INLINE void decode(Source& source, Field& field) {
    WireWords<Field> words;
    for (auto& word : words) word = source.template next<typename WireWord<Field>::Type>();
    field = std::bit_cast<Field>(words);
}
/// Reads a bool: any byte except 0 is true.
template <class Source> Q_ALWAYS_INLINE void decode(Source& source, bool& field) {
    field = source.template next<quint8>() != 0;
}

/// Writes one field to `at` and moves `at` past it.
template <class Field> Q_ALWAYS_INLINE void encode(uchar*& at, const Field& field) {
    for (const auto word : std::bit_cast<WireWords<Field>>(field)) {
        qToBigEndian(word, at);
        at += sizeof(word);
    }
}
/// Writes a bool as 0 or 1.
inline void encode(uchar*& at, bool field) { *at++ = field ? 1 : 0; }

/// Reads one body; lives as long as that takes.
class WireReader {
public:
    /// Reads from `stream`, which must outlive it.
    explicit WireReader(QDataStream& stream);

    /// Reads consecutive fields of fixed size.
    template <class... Fields> void run(Fields&... fields) {
        constexpr auto size = wireSize<Fields...>;
        static_assert(size <= scratchSize);
        const WireBytes bytes = take(size);
        if (bytes.size == size) {
            WholeBytes whole{bytes.data};
            (decode(whole, fields), ...);
        } else {
            CutBytes cut{bytes.data, bytes.data + bytes.size};
            (decode(cut, fields), ...);
        }
    }
    /// Reads a list.
    /// @{
    void list(QList<int>& numbers);
    void list(QList<double>& numbers);
    void list(QList<ControlPoint>& points);
    void list(QList<QList<ControlPoint>>& rows);
    void list(QList<QString>& words);
    /// @}
    /// Reads a text as QDataStream stores it, but allocates only for what is there. A length that
    /// exceeds the bytes gives a null text; so does an odd length, which leaves the bytes unread.
    void text(QString& text);

private:
    static constexpr qsizetype scratchSize = 4096;

    template <class Number> void numberList(QList<Number>& list);
    template <class List, class Read> void elementList(List& list, Read read);
    bool letters(QString& text, qsizetype count);
    int count();
    bool endsBehind(qsizetype done);
    WireBytes take(qsizetype size) { return window_ ? window_->take(size) : copy(size); }
    WireBytes takeElements(qsizetype size, qsizetype count);
    WireBytes copy(qsizetype size);

    QDataStream& stream_;
    RecordWindow* window_; // null when the stream's device is another one
    uchar scratch_[scratchSize];
};

/// Writes one body; lives as long as that takes.
class WireWriter {
public:
    /// Writes to `stream`, which must outlive it.
    explicit WireWriter(QDataStream& stream) : stream_(stream) {}

    /// Writes consecutive fields of fixed size.
    template <class... Fields> void run(const Fields&... fields) {
        uchar bytes[wireSize<Fields...>];
        uchar* at = bytes;
        (encode(at, fields), ...);
        put(bytes, at);
    }
    /// Writes a list.
    /// @{
    void list(const QList<int>& numbers);
    void list(const QList<double>& numbers);
    void list(const QList<ControlPoint>& points);
    void list(const QList<QList<ControlPoint>>& rows);
    void list(const QList<QString>& words);
    /// @}

private:
    template <class Number> void numberList(const QList<Number>& list);
    void put(const uchar* begin, const uchar* end);

    QDataStream& stream_;
};

} // namespace CADImport
