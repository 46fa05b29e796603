// SPDX-License-Identifier: Apache-2.0
// A JSON chunk that describes, a binary chunk with positions, normals and indices.
#include "host/shape/gltffile.h"

#include "host/shape/filefailure.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <algorithm>
#include <limits>
#include <map>

namespace host {
namespace {

constexpr quint32 fileMagic = 0x46546C67, jsonChunk = 0x4E4F534A, binaryChunk = 0x004E4942;
constexpr quint32 version = 2;
constexpr int floats = 5126, unsignedInts = 5125;
constexpr int vertexBuffer = 34962, indexBuffer = 34963;
constexpr double metresPerMillimetre = 0.001;

void append(QByteArray& bytes, quint32 value) {
    const quint32 little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}
void append(QByteArray& bytes, float value) {
    quint32 bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::copy_n(reinterpret_cast<const char*>(&value), sizeof value,
                reinterpret_cast<char*>(&bits));
    append(bytes, bits);
}

/// Z up becomes Y up.
std::array<float, 3> turned(const gp_XYZ& v, double factor) {
    return {static_cast<float>(v.X() * factor), static_cast<float>(v.Z() * factor),
            static_cast<float>(-v.Y() * factor)};
}

class GltfWriter {
public:
    void addPart(const std::vector<const FaceMesh*>& faces) {
        const int positions = addPositions(faces);
        const int normals = addNormals(faces);
        const int indices = addIndices(faces);
        const QJsonObject primitive{
            {"attributes", QJsonObject{{"POSITION", positions}, {"NORMAL", normals}}},
            {"indices", indices},
            {"material", 0}};
        meshes_.append(QJsonObject{{"primitives", QJsonArray{primitive}}});
        nodes_.append(QJsonObject{{"mesh", nodes_.size()}});
    }

    QByteArray file() const {
        QByteArray json = QJsonDocument(description()).toJson(QJsonDocument::Compact);
        while (json.size() % 4 != 0) json.append(' ');
        QByteArray result;
        append(result, fileMagic);
        append(result, version);
        append(result, static_cast<quint32>(12 + 8 + json.size() + 8 + binary_.size()));
        append(result, static_cast<quint32>(json.size()));
        append(result, jsonChunk);
        result.append(json);
        append(result, static_cast<quint32>(binary_.size()));
        append(result, binaryChunk);
        result.append(binary_);
        return result;
    }

private:
    int addPositions(const std::vector<const FaceMesh*>& faces) {
        const auto start = binary_.size();
        std::array<float, 3> low, high;
        low.fill(std::numeric_limits<float>::max());
        high.fill(std::numeric_limits<float>::lowest());
        int count = 0;
        for (const FaceMesh* face : faces) {
            for (const gp_Pnt& point : face->points) {
                const auto at = turned(point.XYZ(), metresPerMillimetre);
                for (std::size_t i = 0; i < 3; ++i) {
                    low[i] = std::min(low[i], at[i]);
                    high[i] = std::max(high[i], at[i]);
                    append(binary_, at[i]);
                }
                ++count;
            }
        }
        QJsonObject accessor = describe(start, vertexBuffer, count, floats, "VEC3");
        accessor["min"] = QJsonArray{low[0], low[1], low[2]};
        accessor["max"] = QJsonArray{high[0], high[1], high[2]};
        return add(accessor);
    }
    int addNormals(const std::vector<const FaceMesh*>& faces) {
        const auto start = binary_.size();
        int count = 0;
        for (const FaceMesh* face : faces) {
            for (const gp_Vec& normal : face->normals) {
                for (const float value : turned(normal.XYZ(), 1.0)) append(binary_, value);
                ++count;
            }
        }
        return add(describe(start, vertexBuffer, count, floats, "VEC3"));
    }
    int addIndices(const std::vector<const FaceMesh*>& faces) {
        const auto start = binary_.size();
        quint32 first = 0;
        int count = 0;
        for (const FaceMesh* face : faces) {
            for (const auto& triangle : face->triangles) {
                for (const int corner : triangle) {
                    append(binary_, first + static_cast<quint32>(corner));
                }
                count += 3;
            }
            first += static_cast<quint32>(face->points.size());
        }
        return add(describe(start, indexBuffer, count, unsignedInts, "SCALAR"));
    }

    QJsonObject describe(qint64 start, int target, int count, int component, const char* type) {
        views_.append(QJsonObject{{"buffer", 0},
                                  {"byteOffset", start},
                                  {"byteLength", static_cast<qint64>(binary_.size()) - start},
                                  {"target", target}});
        return {{"bufferView", views_.size() - 1},
                {"componentType", component},
                {"count", count},
                {"type", type}};
    }
    int add(const QJsonObject& accessor) {
        accessors_.append(accessor);
        return static_cast<int>(accessors_.size()) - 1;
    }

    QJsonObject description() const {
        QJsonArray roots;
        for (int i = 0; i < nodes_.size(); ++i) roots.append(i);
        const QJsonObject look{{"baseColorFactor", QJsonArray{0.66, 0.73, 0.80, 1.0}},
                               {"metallicFactor", 0.2},
                               {"roughnessFactor", 0.6}};
        return {{"asset", QJsonObject{{"version", "2.0"}, {"generator", "brix"}}},
                {"scene", 0},
                {"scenes", QJsonArray{QJsonObject{{"nodes", roots}}}},
                {"nodes", nodes_},
                {"meshes", meshes_},
                {"materials", QJsonArray{QJsonObject{{"pbrMetallicRoughness", look}}}},
                {"accessors", accessors_},
                {"bufferViews", views_},
                {"buffers",
                 QJsonArray{QJsonObject{{"byteLength", static_cast<qint64>(binary_.size())}}}}};
    }

    QByteArray binary_;
    QJsonArray accessors_, views_, meshes_, nodes_;
};

} // namespace

void writeGltf(const ShapeMesh& mesh, const std::string& path) {
    std::map<int, std::vector<const FaceMesh*>> parts;
    for (const FaceMesh& face : mesh.faces) parts[face.part].push_back(&face);
    if (parts.empty()) throw FileFailure("there is nothing to export");
    GltfWriter writer;
    for (const auto& part : parts) writer.addPart(part.second);
    const QByteArray bytes = writer.file();
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        throw FileFailure("the export could not be written: " + file.errorString().toStdString());
    }
}

} // namespace host
