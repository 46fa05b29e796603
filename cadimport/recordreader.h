// SPDX-License-Identifier: Apache-2.0
/// @file
/// RecordReader: reads a file of records quickly, and in memory that doesn't grow with the file.
///
/// It yields what this loop yields, whatever bytes the file holds, at a fraction of the time:
///
///     QString wireName;
///     stream >> wireName;
///     Message* message = createMessage(messageRegistry(), wireName, stream);
///
/// The file passes through a window of 256 kB. Wire names are compared as they lie there, and
/// bodies are decoded from there, whole runs of numbers at a time. The file is read, not mapped:
/// one that somebody cuts short meanwhile just ends earlier.
#pragma once

#include "cadimport/message.h"

#include <memory>

class QIODevice;

namespace CADImport {

/// One thread uses a RecordReader. The device is open for reading, outlives the reader and isn't
/// used by others meanwhile; its own position runs ahead of the records.
class RecordReader {
public:
    /// Starts at the device's position.
    explicit RecordReader(QIODevice& device);
    ~RecordReader();
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

    /// True when no byte is left.
    bool atEnd();
    /// The next message, valid or not. Null when its wire name isn't registered: then only the name
    /// was consumed, and the next one is taken from wherever that leaves the reader.
    std::unique_ptr<Message> next();
    /// The same for those who only look: an object that the reader keeps for the class, to be read
    /// into again at the next call. It costs half the time. One that was longer than the window
    /// isn't kept.
    const Message* look();
    /// Bytes consumed so far.
    qint64 position() const;
    /// True once something was read for which the file had too few bytes.
    bool ranOut() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace CADImport
