// SPDX-License-Identifier: Apache-2.0
// Each kind of record names its fields once, for both directions. Curves and surfaces stand in
// tables in front, once each however often they are used.
#include "host/modelling/recordfile.h"

#include <QDataStream>

#include <map>
#include <type_traits>

namespace host {
namespace {

constexpr quint32 magic = 0x42525831; // "BRX1"

template <class Archive> void fields(Archive& a, ZelVector3& v) { a(v.x, v.y, v.z); }
template <class Archive> void fields(Archive& a, LineRecord& r) { a(r.start, r.end); }
template <class Archive> void fields(Archive& a, ArcRecord& r) {
    a(r.center, r.normal, r.direction, r.radius, r.startAngle, r.endAngle);
}
template <class Archive> void fields(Archive& a, EllipseRecord& r) {
    a(r.center, r.normal, r.direction, r.bigHalfAxis, r.littleHalfAxis, r.startAngle, r.endAngle);
}
template <class Archive> void frame(Archive& a, FrameRecord& r) {
    a(r.origin, r.normal, r.uDirection, r.uRange, r.vRange);
}
template <class Archive> void fields(Archive& a, PlaneRecord& r) { frame(a, r); }
template <class Archive> void fields(Archive& a, CylinderRecord& r) {
    frame(a, r);
    a(r.radius);
}
template <class Archive> void fields(Archive& a, ConeRecord& r) {
    frame(a, r);
    a(r.halfAngle);
}
template <class Archive> void fields(Archive& a, SphereRecord& r) {
    frame(a, r);
    a(r.radius);
}
template <class Archive> void fields(Archive& a, TorusRecord& r) {
    frame(a, r);
    a(r.majorRadius, r.minorRadius);
}
template <class Archive> void fields(Archive& a, NurbSurfaceRecord& r) {
    a(r.rational, r.degreeU, r.degreeV, r.rows, r.columns, r.knotsU, r.knotsV, r.points, r.weights);
}
template <class Archive> void fields(Archive& a, EdgeRecord& r) {
    a(r.faces, r.sense);
    a.curve(r.curve);
}
template <class Archive> void fields(Archive& a, LoopRecord& r) { a(r.edges, r.outer); }
template <class Archive> void fields(Archive& a, FaceRecord& r) {
    a.surface(r.surface);
    a(r.loops);
}
template <class Archive> void fields(Archive& a, ShellRecord& r) {
    a(r.identifier, r.boxMin, r.boxMax, r.faces, r.closed);
}
template <class Archive> void fields(Archive& a, ModelRecord& r) {
    a(r.absolute, r.accuracy, r.edges, r.loops, r.faces, r.shells);
}
template <class Archive> void fields(Archive& a, CoordinateSystemRecord& r) {
    a(r.origin, r.xAxis, r.yAxis);
}
template <class Archive> void fields(Archive& a, DroppedRecord& r) {
    a(r.what, r.identifier, r.why, r.model);
}
template <class Archive> void fields(Archive& a, ImportRecord& r) {
    a(r.models, r.coordinateSystems, r.dropped);
}

/// The shapes of a record, each once, numbered in the order of their first use.
template <class Shape> class ShapeTable {
public:
    qint32 add(const std::shared_ptr<const Shape>& shape) {
        if (!shape) return -1;
        const auto [place, isNew] =
            places_.emplace(shape.get(), static_cast<qint32>(places_.size()));
        if (isNew) shapes.push_back(shape);
        return place->second;
    }
    std::vector<std::shared_ptr<const Shape>> shapes;

private:
    std::map<const Shape*, qint32> places_;
};

struct ShapeTables {
    ShapeTable<CurveRecord> curves;
    ShapeTable<SurfaceRecord> surfaces;

    explicit ShapeTables(const ImportRecord& record) {
        for (const ModelRecord& model : record.models) {
            for (const auto& edge : model.edges) curves.add(edge.second.curve);
            for (const auto& face : model.faces) surfaces.add(face.second.surface);
        }
    }
};

class RecordWriter {
public:
    RecordWriter(QDataStream& stream, ShapeTables& tables) : stream_(stream), tables_(tables) {
        shapes(tables.curves.shapes);
        shapes(tables.surfaces.shapes);
    }
    template <class... Values> void operator()(Values&... values) { (put(values), ...); }
    void curve(std::shared_ptr<const CurveRecord>& shape) { stream_ << tables_.curves.add(shape); }
    void surface(std::shared_ptr<const SurfaceRecord>& shape) {
        stream_ << tables_.surfaces.add(shape);
    }

private:
    template <class Shape> void shapes(const std::vector<std::shared_ptr<const Shape>>& list) {
        count(list.size());
        for (const auto& shape : list) {
            Shape copy = *shape;
            stream_ << static_cast<quint8>(copy.index());
            std::visit([this](auto& kind) { this->put(kind); }, copy);
        }
    }
    void count(std::size_t size) { stream_ << static_cast<quint32>(size); }

    void put(std::string& text) {
        count(text.size());
        stream_.writeRawData(text.data(), static_cast<int>(text.size()));
    }
    template <class T, std::size_t n> void put(std::array<T, n>& list) {
        for (T& element : list) put(element);
    }
    template <class T> void put(std::vector<T>& list) {
        count(list.size());
        for (T& element : list) put(element);
    }
    template <class Key, class T> void put(std::map<Key, T>& list) {
        count(list.size());
        for (auto& [key, element] : list) {
            stream_ << key;
            put(element);
        }
    }
    template <class T> void put(T& value) {
        if constexpr (std::is_arithmetic_v<T>) {
            stream_ << value;
        } else {
            fields(*this, value);
        }
    }

    QDataStream& stream_;
    ShapeTables& tables_;
};

class RecordReader {
public:
    explicit RecordReader(QDataStream& stream) : stream_(stream) {
        shapes(curves_);
        shapes(surfaces_);
    }
    template <class... Values> void operator()(Values&... values) { (get(values), ...); }
    void curve(std::shared_ptr<const CurveRecord>& shape) { pick(curves_, shape); }
    void surface(std::shared_ptr<const SurfaceRecord>& shape) { pick(surfaces_, shape); }

private:
    template <class Shape> using Shapes = std::vector<std::shared_ptr<const Shape>>;

    void fail() { stream_.setStatus(QDataStream::ReadCorruptData); }
    bool isGood() const { return stream_.status() == QDataStream::Ok; }

    /// A count that the bytes left can hold; every element has one byte at least.
    quint32 count() {
        quint32 size = 0;
        stream_ >> size;
        if (!isGood() || qint64{size} > stream_.device()->bytesAvailable()) {
            fail();
            return 0;
        }
        return size;
    }

    template <class Shape> void shapes(Shapes<Shape>& list) {
        for (quint32 left = count(); left > 0 && isGood(); --left) {
            quint8 kind = 0;
            stream_ >> kind;
            Shape shape;
            if (!take<0>(kind, shape)) fail();
            list.push_back(std::make_shared<const Shape>(std::move(shape)));
        }
    }
    template <std::size_t index, class Shape> bool take(std::size_t kind, Shape& shape) {
        if constexpr (index < std::variant_size_v<Shape>) {
            if (kind != index) return take<index + 1>(kind, shape);
            get(shape.template emplace<index>());
            return true;
        }
        return false;
    }
    template <class Shape>
    void pick(const Shapes<Shape>& list, std::shared_ptr<const Shape>& shape) {
        qint32 place = -1;
        stream_ >> place;
        if (place == -1) return;
        if (place < 0 || static_cast<std::size_t>(place) >= list.size()) return fail();
        shape = list[static_cast<std::size_t>(place)];
    }

    void get(std::string& text) {
        text.resize(count());
        const int size = static_cast<int>(text.size());
        if (stream_.readRawData(text.data(), size) != size) fail();
    }
    template <class T, std::size_t n> void get(std::array<T, n>& list) {
        for (T& element : list) get(element);
    }
    template <class T> void get(std::vector<T>& list) {
        for (quint32 left = count(); left > 0 && isGood(); --left) get(list.emplace_back());
    }
    template <class Key, class T> void get(std::map<Key, T>& list) {
        for (quint32 left = count(); left > 0 && isGood(); --left) {
            Key key{};
            stream_ >> key;
            get(list[key]);
        }
    }
    template <class T> void get(T& value) {
        if constexpr (std::is_arithmetic_v<T>) {
            stream_ >> value;
        } else {
            fields(*this, value);
        }
    }

    QDataStream& stream_;
    Shapes<CurveRecord> curves_;
    Shapes<SurfaceRecord> surfaces_;
};

void prepare(QDataStream& stream) {
    stream.setVersion(QDataStream::Qt_5_0);
    stream.setFloatingPointPrecision(QDataStream::DoublePrecision);
}

} // namespace

bool writeRecord(QIODevice& device, const ImportRecord& record) {
    QDataStream stream(&device);
    prepare(stream);
    stream << magic;
    ShapeTables tables(record);
    RecordWriter writer(stream, tables);
    ImportRecord copy = record;
    writer(copy);
    return stream.status() == QDataStream::Ok;
}

std::optional<ImportRecord> readRecord(QIODevice& device) {
    QDataStream stream(&device);
    prepare(stream);
    quint32 start = 0;
    stream >> start;
    if (start != magic) return std::nullopt;
    ImportRecord record;
    RecordReader reader(stream);
    reader(record);
    if (stream.status() != QDataStream::Ok) return std::nullopt;
    return record;
}

} // namespace host
