// SPDX-License-Identifier: Apache-2.0
// Curves and surfaces: each message becomes an object of the host, scaled by the object itself and
// filed under the message's identifier. The numbers go across as they came.
#include "cadimport/creator.h"

#include "cadimport/creatorvalues.h"
#include "cadimport/modelling/izelfeature.h"
#include "component/objects/sptr.h"

#include <algorithm>

namespace CADImport {
namespace {

bool isRectangular(const QList<QList<ControlPoint>>& grid) {
    if (grid.isEmpty()) return false;
    const auto columns = grid.first().size();
    return std::none_of(grid.begin(), grid.end(),
                        [columns](const auto& row) { return row.size() < columns; });
}

void setKnots(const CreateNURBSSurface& m, IZelNurbSurface& shape) {
    std::int32_t index = 0;
    for (double knot : m.knotsU) shape.setKnotU(index++, knot);
    index = 0;
    for (double knot : m.knotsV) shape.setKnotV(index++, knot);
}

void setGrid(const CreateNURBSSurface& m, IZelNurbSurface& shape) {
    const auto columns = static_cast<std::int32_t>(m.controlPoints.first().size());
    std::int32_t row = 0;
    for (const QList<ControlPoint>& points : m.controlPoints) {
        for (std::int32_t column = 0; column < columns; ++column) {
            const ControlPoint& p = points.at(column);
            shape.setControlPoint(row, column, {p.x, p.y, p.z}, p.w);
        }
        ++row;
    }
}

} // namespace

template <class Shape, class Stored, class Message, class Define>
void Creator::fileShape(const Message& message, std::map<int, IPtr<Stored>>& table, Define define) {
    if (!message.isValid()) return;
    const SPtr<Shape> shape;
    if (!shape) return;
    define(message, *shape.iface);
    scale(shape.unknown);
    table[message.identifier] = zelQuery<Stored>(shape.unknown);
}

void Creator::scale(IZelUnknown* shape) const {
    if (!modelTransform) return;
    if (auto* feature = zelQuery<IZelFeature>(shape)) feature->transform(modelTransform.get());
}

void Creator::visit(const CreateLine& message) {
    fileShape<IZelLine>(message, curves, [](const CreateLine& m, IZelLine& shape) {
        shape.define(vector(m.startPoint), vector(m.endPoint), nullptr, 0.0);
    });
}

void Creator::visit(const CreateArc& message) {
    fileShape<IZelArc>(message, curves, [](const CreateArc& m, IZelArc& shape) {
        shape.define(vector(m.center), m.radius, vector(m.normal), vector(m.direction),
                     m.startAngle, m.endAngle, nullptr, 0.0);
    });
}

void Creator::visit(const CreateEllipse& message) {
    fileShape<IZelEllipse>(message, curves, [](const CreateEllipse& m, IZelEllipse& shape) {
        shape.define(vector(m.center), vector(m.normal), vector(m.direction), m.bigHalfAxis,
                     m.littleHalfAxis, m.startAngle, m.endAngle, nullptr, 0.0);
    });
}

void Creator::visit(const CreateNURBSCurve&) {}

void Creator::visit(const CreatePlane& message) {
    fileShape<IZelPlane>(message, surfaces, [](const CreatePlane& m, IZelPlane& shape) {
        shape.define(vector(m.origin), vector(m.normal), vector(m.uDirection), range(m.uRange),
                     range(m.vRange));
    });
}

void Creator::visit(const CreateCylinder& message) {
    fileShape<IZelCylinder>(message, surfaces, [](const CreateCylinder& m, IZelCylinder& shape) {
        shape.define(vector(m.origin), vector(m.normal), vector(m.uDirection), m.radius,
                     range(m.uRange), range(m.vRange), range(m.uRange), range(m.vRange));
    });
}

void Creator::visit(const CreateCone& message) {
    fileShape<IZelCone>(message, surfaces, [](const CreateCone& m, IZelCone& shape) {
        shape.define(vector(m.origin), vector(m.normal), vector(m.uDirection), m.angle,
                     range(m.uRange), range(m.vRange), range(m.uRange), range(m.vRange));
    });
}

void Creator::visit(const CreateSphere& message) {
    fileShape<IZelSphere>(message, surfaces, [](const CreateSphere& m, IZelSphere& shape) {
        shape.define(vector(m.origin), m.radius, vector(m.normal), vector(m.uDirection),
                     range(m.uRange), range(m.vRange), nullptr, nullptr);
    });
}

void Creator::visit(const CreateTorus& message) {
    fileShape<IZelTorus>(message, surfaces, [](const CreateTorus& m, IZelTorus& shape) {
        shape.define(vector(m.origin), vector(m.normal), m.majorRadius, m.minorRadius,
                     vector(m.uDirection), range(m.uRange), range(m.vRange), nullptr, nullptr, 0);
    });
}

void Creator::visit(const CreateNURBSSurface& message) {
    if (!isRectangular(message.controlPoints)) return;
    fileShape<IZelNurbSurface>(
        message, surfaces, [](const CreateNURBSSurface& m, IZelNurbSurface& shape) {
            shape.define(m.rational, m.degreeU, m.degreeV,
                         static_cast<std::int32_t>(m.controlPoints.size()),
                         static_cast<std::int32_t>(m.controlPoints.first().size()));
            setKnots(m, shape);
            setGrid(m, shape);
        });
}

} // namespace CADImport
