// SPDX-License-Identifier: Apache-2.0
// The surface object for rational and plain B-spline surfaces.
#pragma once

#include "host/modelling/shapeobject.h"

namespace host {

/// Knots and points are kept as far as they came: the lists grow with the calls, whatever the
/// announced numbers, and a point outside the announced grid is left out.
class NurbSurfaceObject : public ShapeObject<IZelNurbSurface, SurfaceFamily, NurbSurfaceRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "NurbSurfaceObject"; }
    void define(bool rational, std::int32_t degreeU, std::int32_t degreeV, std::int32_t rows,
                std::int32_t columns) override;
    void setKnotU(std::int32_t index, double knot) override;
    void setKnotV(std::int32_t index, double knot) override;
    void setControlPoint(std::int32_t row, std::int32_t column, const ZelVector3& point,
                         double w) override;
};

} // namespace host
