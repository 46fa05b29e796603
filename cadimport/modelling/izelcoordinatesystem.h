// SPDX-License-Identifier: Apache-2.0
// A coordinate system of the host.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/math/zelvector3.h"

/// The origin comes in model units as it stood in the file; the axes come multiplied with the
/// model's scale. The object settles what it makes of the two.
class IZelCoordinateSystem : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCoordinateSystem";

    virtual void reserved1() {}
    virtual void setOrigin(const ZelVector3& origin) = 0;
    virtual void setAxes(const ZelVector3& xDirection, const ZelVector3& yDirection) = 0;
};
