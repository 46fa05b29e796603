// SPDX-License-Identifier: Apache-2.0
// Filling messages, and putting models together from them.
#include "tests/cadimport/samplemessages.h"

#include "tests/cadimport/messagefields.h"

#include <QIODevice>

namespace CADImport {
namespace {

using sample::Random;

struct Filler {
    Random& random;
    int length;

    void set(int& value) { value = static_cast<int>(random()); }
    void set(bool& value) { value = random() % 2 != 0; }
    void set(double& value) { value = (static_cast<double>(random()) - 2e9) / 1024.0; }
    void set(QString& word) { word = QString::number(random()) + QChar(0x20AC); }
    template <class T> void set(QList<T>& list) {
        list.clear();
        for (int i = 0; i < length; ++i) {
            T element;
            set(element);
            list.append(element);
        }
    }
    template <class T> void set(T& whole) {
        std::apply([&](auto&... parts) { (set(parts), ...); }, fieldsOf(whole));
    }
};

template <class T> void fill(Random& random, int length, T& message) {
    Filler{random, length}.set(message);
}

/// Collects records up to a size.
struct ModelWriter {
    explicit ModelWriter(qint64 sizeWanted) : size(sizeWanted) {
        bytes.reserve(static_cast<int>(size + size / 8));
        stream.setVersion(streamVersion);
    }
    template <class T> void add(int length = 1) {
        T message;
        fill(random, length, message);
        stream << T::wireName;
        message.write(stream);
    }
    bool isFull() const { return bytes.size() >= size; }
    int between(int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    }

    qint64 size;
    Random random{20240607};
    QByteArray bytes;
    QDataStream stream{&bytes, QIODevice::WriteOnly};
};

void addFreeFormSurface(ModelWriter& writer) {
    CreateNURBSSurface surface;
    fill(writer.random, 1, surface);
    const int rows = writer.between(4, 24);
    const int columns = writer.between(4, 24);
    fill(writer.random, rows + 4, surface);
    surface.resizeGrid(rows, columns);
    writer.stream << surface.name();
    surface.write(writer.stream);
}

/// A face with a loop of four edges; each edge counts for two faces.
void addFace(ModelWriter& writer) {
    if (writer.between(1, 100) <= 64) {
        addFreeFormSurface(writer);
    } else {
        writer.add<CreatePlane>();
        writer.add<CreateCylinder>();
    }
    for (int i = 0; i < 2; ++i) {
        writer.add<CreateLine>();
        writer.add<CreateArc>();
        writer.add<CreateEdge>();
        writer.add<CreateVertex>();
    }
    for (int i = 0; i < 4; ++i) writer.add<CreateCoedge>();
    writer.add<CreateLoop>(4);
    writer.add<CreateFace>(1);
}

} // namespace
} // namespace CADImport

namespace sample {

using namespace CADImport;

std::vector<std::unique_ptr<Message>> oneOfEach(Random& random, int length) {
    std::vector<std::unique_ptr<Message>> messages;
    const auto add = [&](auto message) {
        fill(random, length, message);
        messages.push_back(std::make_unique<decltype(message)>(std::move(message)));
    };
    std::apply([&](auto... each) { (add(std::move(each)), ...); }, AllClasses());
    return messages;
}

QByteArray record(const Message& message) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << message.name();
    message.write(stream);
    return bytes;
}

QByteArray mixedModel(qint64 size) {
    ModelWriter writer(size);
    writer.add<NewModel>();
    while (!writer.isFull()) addFace(writer);
    writer.add<EndModel>();
    return writer.bytes;
}

QByteArray smallRecords(qint64 size) {
    ModelWriter writer(size);
    while (!writer.isFull()) {
        writer.add<CreateEdge>();
        writer.add<CreateCoedge>();
        writer.add<CreateVertex>();
        writer.add<CreateLine>();
        writer.add<CreatePlane>();
    }
    return writer.bytes;
}

} // namespace sample
