// SPDX-License-Identifier: Apache-2.0
// Bodies by their fields, every one a read of its own.
#include "tests/cadimport/plainreading.h"

#include "tests/cadimport/messagefields.h"

#include <QMap>

namespace CADImport {
namespace {

struct Reading {
    QDataStream& stream;

    void read(bool& value) { stream >> value; }
    void read(int& value) { stream >> value; }
    void read(double& value) { stream >> value; }
    void read(QString& value) { stream >> value; }
    template <class T> void read(QList<T>& list) {
        list.clear();
        qint32 count;
        stream >> count;
        for (qint32 i = 0; i < count; ++i) {
            T element;
            read(element);
            list.append(element);
            if (stream.atEnd()) break;
        }
    }
    template <class T> void read(T& whole) {
        std::apply([&](auto&... parts) { (read(parts), ...); }, fieldsOf(whole));
    }
};

using Reader = Message* (*)(QDataStream&);

template <class T> Message* readMessage(QDataStream& stream) {
    auto* message = new T;
    Reading{stream}.read(*message);
    return message;
}

template <class... Classes> QMap<QString, Reader> readersOf(std::tuple<Classes...>*) {
    return {{Classes::wireName, readMessage<Classes>}...};
}

} // namespace
} // namespace CADImport

namespace plain {

std::unique_ptr<CADImport::Message> readRecord(QDataStream& stream) {
    static const auto readers = CADImport::readersOf(static_cast<CADImport::AllClasses*>(nullptr));
    QString wireName;
    stream >> wireName;
    const auto reader = readers.value(wireName, nullptr);
    return std::unique_ptr<CADImport::Message>(reader ? reader(stream) : nullptr);
}

} // namespace plain
