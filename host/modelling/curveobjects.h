// SPDX-License-Identifier: Apache-2.0
// The curve objects: lines, arcs and ellipses.
#pragma once

#include "host/modelling/shapeobject.h"

namespace host {

class LineObject : public ShapeObject<IZelLine, CurveFamily, LineRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "LineObject"; }
    void define(const ZelVector3& startPoint, const ZelVector3& endPoint, const void* reserved,
                double reservedValue) override;
};

class ArcObject : public ShapeObject<IZelArc, CurveFamily, ArcRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "ArcObject"; }
    void define(const ZelVector3& center, double radius, const ZelVector3& normal,
                const ZelVector3& direction, double startAngle, double endAngle,
                const void* reserved, double reservedValue) override;
};

class EllipseObject : public ShapeObject<IZelEllipse, CurveFamily, EllipseRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "EllipseObject"; }
    void define(const ZelVector3& center, const ZelVector3& normal, const ZelVector3& direction,
                double bigHalfAxis, double littleHalfAxis, double startAngle, double endAngle,
                const void* reserved, double reservedValue) override;
};

} // namespace host
