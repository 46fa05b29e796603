// SPDX-License-Identifier: Apache-2.0
// The surfaces of the host's modelling component. Each lookup by the interface's name yields a new
// object with count 0. Points and lengths are in model units until IZelFeature::transform, angles
// in radians. The trailing null pointers and zeros are always these constants.
#pragma once

#include "cadimport/modelling/shapearguments.h"
#include "component/objects/izelunknown.h"

/// What the importer stores of a surface. Surface objects answer for it and for IZelFeature.
class IZelSurface : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelSurface";
};

class IZelPlane : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelPlane";

    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void define(const ZelVector3& origin, const ZelVector3& normal,
                        const ZelVector3& uDirection, const ZelRange& uRange,
                        const ZelRange& vRange) = 0;
};

/// Both ranges come twice, in the same order.
class IZelCylinder : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCylinder";

    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void define(const ZelVector3& origin, const ZelVector3& normal,
                        const ZelVector3& uDirection, double radius, const ZelRange& uRange,
                        const ZelRange& vRange, const ZelRange& uRangeAgain,
                        const ZelRange& vRangeAgain) = 0;
};

/// `angle` is the half angle at the apex. Both ranges come twice, in the same order.
class IZelCone : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCone";

    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void define(const ZelVector3& origin, const ZelVector3& normal,
                        const ZelVector3& uDirection, double angle, const ZelRange& uRange,
                        const ZelRange& vRange, const ZelRange& uRangeAgain,
                        const ZelRange& vRangeAgain) = 0;
};

class IZelSphere : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelSphere";

    virtual void reserved1() {}
    virtual void define(const ZelVector3& origin, double radius, const ZelVector3& normal,
                        const ZelVector3& uDirection, const ZelRange& uRange,
                        const ZelRange& vRange, const void* reserved1st,
                        const void* reserved2nd) = 0;
};

class IZelTorus : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelTorus";

    virtual void reserved1() {}
    virtual void define(const ZelVector3& origin, const ZelVector3& normal, double majorRadius,
                        double minorRadius, const ZelVector3& uDirection, const ZelRange& uRange,
                        const ZelRange& vRange, const void* reserved1st, const void* reserved2nd,
                        std::int32_t reserved3rd) = 0;
};

/// Knots come one by one with their index, repeated where they are multiple. Points are not
/// multiplied with their weight `w`.
class IZelNurbSurface : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelNurbSurface";

    virtual void reserved1() {}
    virtual void reserved2() {}
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
    virtual void setKnotU(std::int32_t index, double knot) = 0;
    virtual void setKnotV(std::int32_t index, double knot) = 0;
    virtual void reserved11() {}
    virtual void reserved12() {}
    virtual void reserved13() {}
    virtual void reserved14() {}
    virtual void reserved15() {}
    virtual void reserved16() {}
    virtual void setControlPoint(std::int32_t row, std::int32_t column, const ZelVector3& point,
                                 double w) = 0;
};
