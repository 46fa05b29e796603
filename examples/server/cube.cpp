// SPDX-License-Identifier: Apache-2.0
// Surfaces first, then curves and edges, then what is made of them: whatever a message names has
// been sent before, but for the faces of an edge.
#include "cube.h"

#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <algorithm>
#include <map>

using namespace CADImport;

namespace {

constexpr double half = 10; ///< of an edge, in units of the model

/// The corners of each face, counter-clockwise as seen from outside. Faces 1 and 2 are the lower
/// and the upper one across x, the next two across y, the last two across z. Bit 0 of a corner
/// tells its side in x, bit 1 in y, bit 2 in z.
constexpr int corners[6][4] = {{0, 4, 6, 2}, {1, 3, 7, 5}, {0, 1, 5, 4},
                               {2, 6, 7, 3}, {0, 2, 3, 1}, {4, 5, 7, 6}};

Point3 pointOf(int corner) {
    return {corner & 1 ? half : -half, corner & 2 ? half : -half, corner & 4 ? half : -half};
}

Point3 alongAxis(int axis, double length) {
    return {axis == 0 ? length : 0, axis == 1 ? length : 0, axis == 2 ? length : 0};
}

CreatePlane planeOf(int face) {
    const int axis = (face - 1) / 2;
    const double outward = face % 2 == 0 ? 1 : -1;
    CreatePlane plane;
    plane.identifier = face;
    plane.origin = alongAxis(axis, outward * half);
    plane.normal = alongAxis(axis, outward);
    plane.uDirection = alongAxis((axis + 1) % 3, 1);
    plane.uRange = plane.vRange = {-half, half};
    return plane;
}

CreateLine lineOf(const CreateEdge& edge, const std::pair<int, int>& ends) {
    CreateLine line;
    line.identifier = edge.curve;
    line.startPoint = pointOf(ends.first);
    line.endPoint = pointOf(ends.second);
    return line;
}

using Edges = std::map<std::pair<int, int>, CreateEdge>; ///< by their corners, the lower one first

/// The loop of a face, whose edges learn on which side of theirs it lies.
CreateLoop loopOf(int face, Edges& edges) {
    CreateLoop loop;
    loop.identifier = loop.faceId = face;
    for (int i = 0; i < 4; ++i) {
        const int from = corners[face - 1][i], to = corners[face - 1][(i + 1) % 4];
        const int side = from < to ? 0 : 1; // 0 where the loop runs with the line
        CreateEdge& edge = edges[std::minmax(from, to)];
        if (edge.curve == 0) edge.curve = static_cast<int>(edges.size());
        edge.identifier = edge.curve << 8; // the low bits number the pieces of one edge
        edge.faces[side] = face;
        edge.coedges[side] = 4 * face + i;
        loop.edges << edge.identifier;
        loop.coedges << edge.coedges[side];
    }
    return loop;
}

CreateFace faceOf(int number) {
    CreateFace face;
    face.identifier = face.surfaceId = number;
    face.loops << number;
    return face;
}

} // namespace

void writeCube(QIODevice& file) {
    QDataStream stream(&file);
    stream.setVersion(streamVersion);
    const auto send = [&stream](const Message& message) {
        stream << message.name();
        message.write(stream);
    };
    NewModel model;
    model.accuracy = 1e-6;
    model.unit = 1; // millimetres
    send(model);
    Edges edges;
    QList<CreateLoop> loops;
    CreateShell shell;
    shell.identifier = 1;
    shell.boundingBox = {pointOf(0), pointOf(7)};
    shell.closed = true;
    for (int face = 1; face <= 6; ++face) {
        send(planeOf(face));
        loops << loopOf(face, edges);
        shell.faces << face;
    }
    for (const auto& [ends, edge] : edges) send(lineOf(edge, ends));
    for (const auto& [ends, edge] : edges) send(edge);
    for (const CreateLoop& loop : loops) send(loop);
    for (const int face : shell.faces) send(faceOf(face));
    send(shell);
    send(EndModel());
}
