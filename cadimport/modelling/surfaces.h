// SPDX-License-Identifier: Apache-2.0
/// @file
/// The surfaces of the host's modelling component.
///
/// Each lookup by the name of an interface yields a new object with the count 0, used by the thread
/// of the import. Points and lengths are in model units until IZelFeature::transform(); angles are
/// in radians. The trailing null pointers and zeros are always these constants. `reserved`
/// operations are never called. Failure isn't reported.
#pragma once

#include "cadimport/modelling/shapearguments.h"
#include "component/objects/izelunknown.h"

/// What the importer keeps of a surface. Every surface object answers to this interface and to
/// IZelFeature.
class IZelSurface : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelSurface";
};

/// A plane.
class IZelPlane : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelPlane";

    virtual void reserved1() {}
    virtual void reserved2() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& origin, const ZelVector3& normal,
                        const ZelVector3& uDirection, const ZelRange& uRange,
                        const ZelRange& vRange) = 0;
};

/// A cylinder about `normal`. Both ranges are passed twice, in the same order.
class IZelCylinder : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCylinder";

    virtual void reserved1() {}
    virtual void reserved2() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& origin, const ZelVector3& normal,
                        const ZelVector3& uDirection, double radius, const ZelRange& uRange,
                        const ZelRange& vRange, const ZelRange& uRangeAgain,
                        const ZelRange& vRangeAgain) = 0;
};

/// A cone about `normal`. `angle` is the half angle at the apex. Both ranges are passed twice, in
/// the same order.
class IZelCone : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCone";

    virtual void reserved1() {}
    virtual void reserved2() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& origin, const ZelVector3& normal,
                        const ZelVector3& uDirection, double angle, const ZelRange& uRange,
                        const ZelRange& vRange, const ZelRange& uRangeAgain,
                        const ZelRange& vRangeAgain) = 0;
};

/// A sphere.
class IZelSphere : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelSphere";

    virtual void reserved1() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& origin, double radius, const ZelVector3& normal,
                        const ZelVector3& uDirection, const ZelRange& uRange,
                        const ZelRange& vRange, const void* reserved1st,
                        const void* reserved2nd) = 0;
};

/// A torus about `normal`.
class IZelTorus : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelTorus";

    virtual void reserved1() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& origin, const ZelVector3& normal, double majorRadius,
                        double minorRadius, const ZelVector3& uDirection, const ZelRange& uRange,
                        const ZelRange& vRange, const void* reserved1st, const void* reserved2nd,
                        std::int32_t reserved3rd) = 0;
};

/// A NURBS surface. After `define`, knots are set one by one with their index, repeated by their
/// multiplicity. Points aren't multiplied by their weight `w`.
class IZelNurbSurface : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelNurbSurface";

    virtual void reserved1() {}
    virtual void reserved2() {}
    /// Sets the degrees and the size of the control grid; rows run with u.
    virtual void define(bool rational, std::int32_t degreeU, std::int32_t degreeV,
                        std::int32_t rows, std::int32_t columns) = 0;
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}
    virtual void reserved7() {}
    virtual void reserved8() {}
    virtual void reserved9() {}
    virtual void reserved10() {}
    /// Sets one knot.
    /// @{
    virtual void setKnotU(std::int32_t index, double knot) = 0;
    virtual void setKnotV(std::int32_t index, double knot) = 0;
    /// @}
    virtual void reserved11() {}
    virtual void reserved12() {}
    virtual void reserved13() {}
    virtual void reserved14() {}
    virtual void reserved15() {}
    virtual void reserved16() {}
    /// Sets one control point.
    virtual void setControlPoint(std::int32_t row, std::int32_t column, const ZelVector3& point,
                                 double w) = 0;
};
