// SPDX-License-Identifier: Apache-2.0
// The curves of the host's modelling component. Each lookup by the interface's name yields a new
// object with count 0. Points and lengths are in model units until IZelFeature::transform, angles
// in radians. The trailing null pointers and zeros are always these constants.
#pragma once

#include "cadimport/modelling/shapearguments.h"
#include "component/objects/izelunknown.h"

/// What the importer stores of a curve. Curve objects answer for it and for IZelFeature.
class IZelCurve : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCurve";
};

class IZelLine : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelLine";

    virtual void reserved1() {}
    virtual void define(const ZelVector3& startPoint, const ZelVector3& endPoint,
                        const void* reserved, double reservedValue) = 0;
};

/// `startAngle` and `endAngle` count from `direction`, to the right about `normal`.
class IZelArc : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelArc";

    virtual void reserved1() {}
    virtual void define(const ZelVector3& center, double radius, const ZelVector3& normal,
                        const ZelVector3& direction, double startAngle, double endAngle,
                        const void* reserved, double reservedValue) = 0;
};

/// `direction` is that of the big half axis; the angles are those of the parametric form.
class IZelEllipse : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelEllipse";

    virtual void reserved1() {}
    virtual void define(const ZelVector3& center, const ZelVector3& normal,
                        const ZelVector3& direction, double bigHalfAxis, double littleHalfAxis,
                        double startAngle, double endAngle, const void* reserved,
                        double reservedValue) = 0;
};
