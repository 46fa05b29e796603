// SPDX-License-Identifier: Apache-2.0
// Frames.
#include "cadimport/message.h"

#include "cadimport/messageregistry.h"
#include "cadimport/wire.h"

#include <QBuffer>
#include <QByteArray>

namespace CADImport {

QDataStream& operator<<(QDataStream& stream, const Message& message) {
    QByteArray record;
    {
        QDataStream inner(&record, QIODevice::WriteOnly);
        inner.setVersion(streamVersion);
        inner << message.name();
        message.write(inner);
    }
    return stream << record;
}

QDataStream& operator>>(QDataStream& stream, Message*& message) {
    QByteArray record;
    stream >> record;
    QDataStream inner(record);
    inner.setVersion(streamVersion);
    QString wireName;
    WireReader(inner).text(wireName);
    delete message;
    message = nullptr;
    message = createMessage(messageRegistry(), wireName, inner);
    return stream;
}

QTextStream& operator<<(QTextStream& text, const Message& message) {
    message.dump(text);
    return text;
}

} // namespace CADImport
