// SPDX-License-Identifier: Apache-2.0
// Frames by way of the messages' stream forms.
#include "cadimport/controlframe.h"

#include "cadimport/messageregistry.h"
#include "cadimport/wire.h"

#include <QBuffer>
#include <QDataStream>

namespace CADImport {

QByteArray controlFrame(const Message& message) {
    QByteArray frame;
    QDataStream stream(&frame, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << message;
    return frame;
}

std::unique_ptr<Message> messageInFrame(const QByteArray& payload) {
    QBuffer buffer;
    buffer.setData(payload);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    stream.setVersion(streamVersion);
    QString wireName;
    WireReader(stream).text(wireName);
    return std::unique_ptr<Message>(createMessage(messageRegistry(), wireName, stream));
}

} // namespace CADImport
