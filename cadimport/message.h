// SPDX-License-Identifier: Apache-2.0
/// @file
/// Message: the base class of everything that client and server say to each other, and the formats
/// in which messages travel.
///
/// A record is the wire name as a string, followed by the body. A frame is a record with a 32-bit
/// count of its bytes in front, as sent over a socket. Numbers are big-endian; docs/formats.md
/// describes the bytes. Streams that carry messages must be set to version `streamVersion`.
///
/// A message is created, filled once, used and deleted, by one thread at a time. The caller of
/// createMessage() owns the result. Nothing here reports an error: at the end of the data, fields
/// read as 0 and false, and `isValid` is the only check.
#pragma once

#include "cadimport/visitor.h"

#include <QDataStream>
#include <QString>
#include <QTextStream>

#include <new>

namespace CADImport {

/// The version of every QDataStream that carries messages.
inline constexpr int streamVersion = QDataStream::Qt_4_0;
static_assert(streamVersion == 7);

/// Something that client or server says. Each class has a static `wireName`, the name that
/// identifies it in records, in the registry and in dumps.
class Message : public BaseVisitable<void, DefaultCatchAll, true> {
public:
    /// The wire name.
    virtual const QString& name() const = 0;
    /// Whether the fields make sense by themselves. Receivers ask; reading and writing don't.
    virtual bool isValid() const = 0;
    /// Reads into every field exactly what `write` wrote, and leaves the stream after the body.
    virtual void read(QDataStream& stream) = 0;
    /// Writes the body, without the wire name.
    virtual void write(QDataStream& stream) const = 0;
    /// Writes a text for people to read; no program reads it back.
    virtual void dump(QTextStream& text) const = 0;
};

/// What a message class T gets by deriving from MessageOf<T>. T itself supplies:
/// - `static const QString wireName`;
/// - `template <class Wire, class Self> static void fields(Wire&, Self&)`, which passes the fields
///   to a WireReader or WireWriter in wire order;
/// - `void dumpFields(QTextStream&) const`, which writes the lines between the opening and the
///   closing one.
template <class T> class MessageOf : public Message {
public:
    /// A new T for createMessage(); null when there is no memory.
    static Message* create() { return new (std::nothrow) T; }

    void accept(BaseVisitor& visitor) const override; ///< calls the visitor's handler for T
    const QString& name() const override { return T::wireName; } ///< T's wire name
    void read(QDataStream& stream) override;                     ///< reads T's fields
    void write(QDataStream& stream) const override;              ///< writes T's fields
    void dump(QTextStream& text) const override;                 ///< writes T's lines

protected:
    /// The opening line of the dump; a class with a different one hides this.
    void dumpOpening(QTextStream& text) const;
};

/// Writes one frame.
QDataStream& operator<<(QDataStream& stream, const Message& message);
/// Reads one frame and replaces `message` by it: the old object is deleted, and the new one, owned
/// by the caller, is null when the wire name isn't registered. The frame is consumed either way.
QDataStream& operator>>(QDataStream& stream, Message*& message);
/// Dumps the message.
QTextStream& operator<<(QTextStream& text, const Message& message);

} // namespace CADImport
