// SPDX-License-Identifier: Apache-2.0
// A message as the frame that goes over a control connection.
#pragma once

#include "cadimport/message.h"

#include <QByteArray>
#include <QIODevice>

namespace CADImport {

/// A 32-bit count, the wire name and the body.
inline QByteArray controlFrame(const Message& message) {
    QByteArray frame;
    QDataStream stream(&frame, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << message;
    return frame;
}

} // namespace CADImport
