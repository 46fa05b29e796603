// SPDX-License-Identifier: Apache-2.0
// Topology: edges, loops, faces and shells go to the importer, which resolves the identifiers;
// coordinate systems go past it, back to the client.
#include "cadimport/creator.h"

#include "cadimport/creatorvalues.h"
#include "cadimport/modelling/izelcoordinatesystem.h"
#include "cadimport/modelling/izelfeature.h"
#include "component/manageraccess.h"
#include "zelbasictypes/sets/bitvector.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace CADImport {
namespace {

/// The bound of an empty box, held as a double.
constexpr double floatMax = std::numeric_limits<float>::max();

/// The host's box of a message's. Corners may come in either order; the default box of a message
/// is not the empty one. Whether a box is empty is told by its x axis alone.
ZelBox3 hostBox(const Box& box) {
    const auto [a, b] = std::pair{vector(box.first), vector(box.second)};
    if (a.x >= floatMax && b.x <= -floatMax) {
        return {{floatMax, floatMax, floatMax}, {-floatMax, -floatMax, -floatMax}};
    }
    return {{std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)},
            {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)}};
}

void include(ZelBox3& box, const ZelVector3& p) {
    box.min = {std::min(box.min.x, p.x), std::min(box.min.y, p.y), std::min(box.min.z, p.z)};
    box.max = {std::max(box.max.x, p.x), std::max(box.max.y, p.y), std::max(box.max.z, p.z)};
}

/// The smallest box around the transformed corners; an empty box stays as it is.
ZelBox3 transformed(const ZelMatrix4& matrix, const ZelBox3& box) {
    if (box.min.x > box.max.x) return box;
    const ZelVector3 first = matrix.transformPoint(box.min);
    ZelBox3 result{first, first};
    for (int corner = 1; corner < 8; ++corner) {
        include(result, matrix.transformPoint({(corner & 1) ? box.max.x : box.min.x,
                                               (corner & 2) ? box.max.y : box.min.y,
                                               (corner & 4) ? box.max.z : box.min.z}));
    }
    return result;
}

std::vector<std::int32_t> identifiers(const QList<int>& list, std::size_t count) {
    return {list.begin(), list.begin() + static_cast<QList<int>::difference_type>(count)};
}

} // namespace

void Creator::visit(const CreateEdge& message) {
    if (!message.isValid()) return;
    importer->createEdge(message.identifier);
    const auto curve = curves.find(message.curve);
    if (curve != curves.end()) importer->setEdgeCurve(message.identifier, curve->second.iface);
    importer->setEdgeFace(message.identifier, 0, message.faces[0]);
    importer->setEdgeFace(message.identifier, 1, message.faces[1]);
    importer->setEdgeSense(message.identifier, 0, message.sense);
    importer->setEdgeSense(message.identifier, 1, !message.sense);
}

void Creator::visit(const CreateLoop& message) {
    if (!message.isValid() || message.edges.size() < message.coedges.size()) return;
    const auto count = static_cast<std::size_t>(message.coedges.size());
    const auto edges = identifiers(message.edges, count);
    importer->createLoop(message.identifier, edges.data(), static_cast<std::int32_t>(count),
                         message.outer);
}

void Creator::visit(const CreateFace& message) {
    if (!message.isValid()) return;
    importer->createFace(message.identifier);
    const auto surface = surfaces.find(message.surfaceId);
    if (surface != surfaces.end()) {
        importer->setFaceSurface(message.identifier, surface->second.iface);
    }
    for (int loop : message.loops) importer->addFaceLoop(message.identifier, loop);
}

void Creator::visit(const CreateShell& message) {
    if (!message.isValid()) return;
    ZelBox3 box = hostBox(message.boundingBox);
    if (modelTransform) box = transformed(*modelTransform, box);
    importer->setShellBox(box);
    const auto faces = identifiers(message.faces, static_cast<std::size_t>(message.faces.size()));
    importer->createShell(message.identifier, faces.data(), static_cast<std::int32_t>(faces.size()),
                          message.closed);
}

void Creator::visit(const CreateCoordinateSystem& message) {
    void* found = nullptr;
    zelGetService(KorCString::borrow(IZelCoordinateSystem::interfaceName), &found);
    auto* system = static_cast<IZelCoordinateSystem*>(found);
    if (!system) return;
    const auto axis = [this](const Point3& direction) {
        return modelTransform ? modelTransform->transformVector(vector(direction))
                              : vector(direction);
    };
    system->setOrigin(vector(message.origin));
    system->setAxes(axis(message.xDirection), axis(message.yDirection));
    coordinateSystems_.push_back(zelQuery<IZelFeature>(system));
    coordinateSystemMasks.push_back(new BitVector(10));
}

} // namespace CADImport
