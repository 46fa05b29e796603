// SPDX-License-Identifier: Apache-2.0
/// @file
/// The curves of the host's modelling component.
///
/// Each lookup by the name of an interface yields a new object with the count 0, used by the thread
/// of the import. Points and lengths are in model units until IZelFeature::transform(); angles are
/// in radians. The trailing null pointers and zeros are always these constants. `reserved`
/// operations are never called. Failure isn't reported.
#pragma once

#include "cadimport/modelling/shapearguments.h"
#include "component/objects/izelunknown.h"

/// What the importer keeps of a curve. Every curve object answers to this interface and to
/// IZelFeature.
class IZelCurve : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCurve";
};

/// A line between two points.
class IZelLine : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelLine";

    virtual void reserved1() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& startPoint, const ZelVector3& endPoint,
                        const void* reserved, double reservedValue) = 0;
};

/// An arc of a circle. `startAngle` and `endAngle` are measured from `direction`, right-handed
/// about `normal`.
class IZelArc : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelArc";

    virtual void reserved1() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& center, double radius, const ZelVector3& normal,
                        const ZelVector3& direction, double startAngle, double endAngle,
                        const void* reserved, double reservedValue) = 0;
};

/// An arc of an ellipse. `direction` is that of the big half axis; the angles are those of the
/// parametric form.
class IZelEllipse : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelEllipse";

    virtual void reserved1() {}
    /// Sets the geometry.
    virtual void define(const ZelVector3& center, const ZelVector3& normal,
                        const ZelVector3& direction, double bigHalfAxis, double littleHalfAxis,
                        double startAngle, double endAngle, const void* reserved,
                        double reservedValue) = 0;
};
