// SPDX-License-Identifier: Apache-2.0
// The surface objects of the analytic kinds.
#pragma once

#include "host/modelling/shapeobject.h"

namespace host {

class PlaneObject : public ShapeObject<IZelPlane, SurfaceFamily, PlaneRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "PlaneObject"; }
    void define(const ZelVector3& origin, const ZelVector3& normal, const ZelVector3& uDirection,
                const ZelRange& uRange, const ZelRange& vRange) override;
};

class CylinderObject : public ShapeObject<IZelCylinder, SurfaceFamily, CylinderRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "CylinderObject"; }
    void define(const ZelVector3& origin, const ZelVector3& normal, const ZelVector3& uDirection,
                double radius, const ZelRange& uRange, const ZelRange& vRange,
                const ZelRange& uRangeAgain, const ZelRange& vRangeAgain) override;
};

class ConeObject : public ShapeObject<IZelCone, SurfaceFamily, ConeRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "ConeObject"; }
    void define(const ZelVector3& origin, const ZelVector3& normal, const ZelVector3& uDirection,
                double angle, const ZelRange& uRange, const ZelRange& vRange,
                const ZelRange& uRangeAgain, const ZelRange& vRangeAgain) override;
};

class SphereObject : public ShapeObject<IZelSphere, SurfaceFamily, SphereRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "SphereObject"; }
    void define(const ZelVector3& origin, double radius, const ZelVector3& normal,
                const ZelVector3& uDirection, const ZelRange& uRange, const ZelRange& vRange,
                const void* reserved1st, const void* reserved2nd) override;
};

class TorusObject : public ShapeObject<IZelTorus, SurfaceFamily, TorusRecord> {
public:
    using ShapeObject::ShapeObject;
    const char* className() override { return "TorusObject"; }
    void define(const ZelVector3& origin, const ZelVector3& normal, double majorRadius,
                double minorRadius, const ZelVector3& uDirection, const ZelRange& uRange,
                const ZelRange& vRange, const void* reserved1st, const void* reserved2nd,
                std::int32_t reserved3rd) override;
};

} // namespace host
