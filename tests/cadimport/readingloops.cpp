// SPDX-License-Identifier: Apache-2.0
// Three loops and the device that gives bytes in pieces.
#include "tests/cadimport/readingloops.h"

#include "cadimport/messageregistry.h"
#include "cadimport/recordreader.h"
#include "tests/cadimport/plainreading.h"
#include "tests/cadimport/samplemessages.h"

#include <QBuffer>

#include <memory>

namespace loops {
namespace {

using namespace CADImport;

class PiecewiseDevice : public QBuffer {
public:
    PiecewiseDevice(const QByteArray& file, qint64 pieces) : most(pieces) {
        setData(file);
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char* data, qint64 size) override {
        return QBuffer::readData(data, most > 0 ? qMin(size, most) : size);
    }

private:
    qint64 most;
};

QByteArray seen(const Message* message) {
    if (!message) return "nothing";
    QString text;
    QTextStream stream(&text);
    stream << *message;
    return sample::record(*message) + text.toUtf8();
}

template <class Next> Trace streamLoop(const QByteArray& file, Next next) {
    PiecewiseDevice device(file, 0);
    QDataStream stream(&device);
    stream.setVersion(streamVersion);
    Trace trace;
    while (!device.atEnd()) trace.append(seen(next(stream).get()));
    return trace;
}

std::unique_ptr<Message> create(QDataStream& stream) {
    QString wireName;
    stream >> wireName;
    return std::unique_ptr<Message>(createMessage(messageRegistry(), wireName, stream));
}

} // namespace

Trace valueByValue(const QByteArray& file) { return streamLoop(file, plain::readRecord); }

Trace throughStream(const QByteArray& file) { return streamLoop(file, create); }

Trace throughReader(const QByteArray& file, qint64 pieces) {
    PiecewiseDevice device(file, pieces);
    RecordReader records(device);
    Trace trace;
    while (!records.atEnd()) trace.append(seen(records.next().get()));
    return trace;
}

Trace throughKeptObjects(const QByteArray& file) {
    PiecewiseDevice device(file, 0);
    RecordReader records(device);
    Trace trace;
    while (!records.atEnd()) trace.append(seen(records.look()));
    return trace;
}

} // namespace loops
