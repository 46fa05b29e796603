// SPDX-License-Identifier: Apache-2.0
// The ways to read a file of records. All see the same in the same bytes, whatever the bytes are.
#pragma once

#include <QByteArray>
#include <QList>

namespace loops {

/// One entry a step: "nothing" where the wire name stood for no message, else the message's record
/// written anew, with its dump behind it.
using Trace = QList<QByteArray>;

/// Value by value, sharing nothing with the library's decoder.
Trace valueByValue(const QByteArray& file);
/// createMessage on a QDataStream.
Trace throughStream(const QByteArray& file);
/// RecordReader's `next`. Its device hands out at most `pieces` bytes at a time; 0 stands for all.
Trace throughReader(const QByteArray& file, qint64 pieces = 0);
/// RecordReader's `look`, which reads into the same objects again.
Trace throughKeptObjects(const QByteArray& file);

} // namespace loops
