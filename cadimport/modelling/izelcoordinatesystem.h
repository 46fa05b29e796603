// SPDX-License-Identifier: Apache-2.0
/// @file
/// A coordinate system of the host's modelling component.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/math/zelvector3.h"

/// Looked up by name; each lookup yields a new object with the count 0. What the object makes of
/// the units below is up to the host.
class IZelCoordinateSystem : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCoordinateSystem";

    virtual void reserved1() {}
    /// The origin in model units, as in the file.
    virtual void setOrigin(const ZelVector3& origin) = 0;
    /// The axes, multiplied by the scale of the model.
    virtual void setAxes(const ZelVector3& xDirection, const ZelVector3& yDirection) = 0;
};
