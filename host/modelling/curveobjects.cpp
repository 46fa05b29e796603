// SPDX-License-Identifier: Apache-2.0
// What curve objects keep of their definition.
#include "host/modelling/curveobjects.h"

namespace host {

void LineObject::define(const ZelVector3& startPoint, const ZelVector3& endPoint,
                        const void* reserved, double reservedValue) {
    trace("define", startPoint, endPoint, reserved, reservedValue);
    shape() = {startPoint, endPoint};
}

void ArcObject::define(const ZelVector3& center, double radius, const ZelVector3& normal,
                       const ZelVector3& direction, double startAngle, double endAngle,
                       const void* reserved, double reservedValue) {
    trace("define", center, radius, normal, direction, startAngle, endAngle, reserved,
          reservedValue);
    shape() = {center, normal, direction, radius, startAngle, endAngle};
}

void EllipseObject::define(const ZelVector3& center, const ZelVector3& normal,
                           const ZelVector3& direction, double bigHalfAxis, double littleHalfAxis,
                           double startAngle, double endAngle, const void* reserved,
                           double reservedValue) {
    trace("define", center, normal, direction, bigHalfAxis, littleHalfAxis, startAngle, endAngle,
          reserved, reservedValue);
    shape() = {center, normal, direction, bigHalfAxis, littleHalfAxis, startAngle, endAngle};
}

} // namespace host
