// SPDX-License-Identifier: Apache-2.0
/// @file
/// Messages as frames of a control connection: a 32-bit count of bytes, the wire name, the body.
#pragma once

#include "cadimport/message.h"

#include <QByteArray>

#include <memory>

namespace CADImport {

/// The frame of a message, complete with its count.
QByteArray controlFrame(const Message& message);

/// Parses the payload of one frame, that is the bytes after the count. Null when the wire name
/// isn't registered.
[[nodiscard]] std::unique_ptr<Message> messageInFrame(const QByteArray& payload);

} // namespace CADImport
