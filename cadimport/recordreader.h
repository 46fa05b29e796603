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
/// The file passes through a window of 256 kB. Wire names are compared in the window, and bodies
/// are decoded from it, whole runs of numbers at a time. The file is read, not mapped: if somebody
/// truncates it meanwhile, it just ends earlier.
#pragma once

#include "cadimport/message.h"

#include <memory>

class QIODevice;

namespace CADImport {

/// Reads messages from a device. One thread uses a reader. The device must be open for reading,
/// outlive the reader, and not be used by others meanwhile; its own position runs ahead of the
/// records.
class RecordReader {
public:
    /// Starts at the position of the device.
    explicit RecordReader(QIODevice& device);
    ~RecordReader();
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;

    /// True when no byte is left.
    bool atEnd();
    /// The next message, valid or not. Null when its wire name isn't registered; then only the name
    /// has been consumed, and the next message is read from there.
    std::unique_ptr<Message> next();
    /// The same for callers who don't keep the message: the reader owns it and reads into the same
    /// object at the next call. This takes half the time. A message longer than the window isn't
    /// reused.
    const Message* look();
    /// The number of bytes consumed.
    qint64 position() const;
    /// True once the file had too few bytes for something that was read.
    bool ranOut() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace CADImport
