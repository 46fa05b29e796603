// SPDX-License-Identifier: Apache-2.0
/// @file
/// Message: the base of all that client and server say to each other, and the forms it travels in.
///
/// A record is the wire name as a string and the body behind it. A frame is a record with a 32-bit
/// byte count in front, as it goes over a socket. Numbers are big-endian; docs/formats.md has the
/// bytes. Streams that carry messages are set to version `streamVersion`.
///
/// A message is created, filled once, looked at and deleted, by one thread at a time. Whoever gets
/// one from createMessage owns it. Nothing here reports an error: behind the end of the data fields
/// read as 0 and false, and `isValid` is the only guard.
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

class Message : public BaseVisitable<void, DefaultCatchAll, true> {
public:
    /// The wire name, which tells the class in records, in the registry and in dumps.
    virtual const QString& name() const = 0;
    /// Whether the fields make sense by themselves. For the receiver to ask; nothing else does.
    virtual bool isValid() const = 0;
    /// Takes back exactly what `write` wrote, into every field. Leaves the stream behind the body.
    virtual void read(QDataStream& stream) = 0;
    /// Writes the body, without the wire name.
    virtual void write(QDataStream& stream) const = 0;
    /// Writes the text form, for people; nothing reads it back.
    virtual void dump(QTextStream& text) const = 0;
};

/// What a message class T gets by deriving from MessageOf<T>. T itself brings
///   static const QString wireName;
///   template <class Wire, class Self> static void fields(Wire& wire, Self& self);
///       hands the fields to a WireReader or WireWriter, in the order of the wire;
///   void dumpFields(QTextStream& text) const;
///       writes the lines between the opening and the closing one.
template <class T> class MessageOf : public Message {
public:
    /// A new T for createMessage; null when there is no memory.
    static Message* create() { return new (std::nothrow) T; }

    void accept(BaseVisitor& visitor) const override;
    const QString& name() const override { return T::wireName; }
    void read(QDataStream& stream) override;
    void write(QDataStream& stream) const override;
    void dump(QTextStream& text) const override;

protected:
    /// The opening line of the dump; the classes with one of their own hide it.
    void dumpOpening(QTextStream& text) const;
};

/// Writes one frame.
QDataStream& operator<<(QDataStream& stream, const Message& message);
/// Reads one frame into `message`. The object that it held is deleted; null stays behind when the
/// wire name isn't registered. The frame is consumed either way.
QDataStream& operator>>(QDataStream& stream, Message*& message);
/// Dumps the message.
QTextStream& operator<<(QTextStream& text, const Message& message);

} // namespace CADImport
