// SPDX-License-Identifier: Apache-2.0
// What surface objects keep of their definition.
#include "host/modelling/surfaceobjects.h"

namespace host {
namespace {

FrameRecord frame(const ZelVector3& origin, const ZelVector3& normal, const ZelVector3& uDirection,
                  const ZelRange& u, const ZelRange& v) {
    return {origin, normal, uDirection, {u.first, u.last}, {v.first, v.last}};
}

} // namespace

void PlaneObject::define(const ZelVector3& origin, const ZelVector3& normal,
                         const ZelVector3& uDirection, const ZelRange& uRange,
                         const ZelRange& vRange) {
    trace("define", origin, normal, uDirection, uRange, vRange);
    shape() = {frame(origin, normal, uDirection, uRange, vRange)};
}

void CylinderObject::define(const ZelVector3& origin, const ZelVector3& normal,
                            const ZelVector3& uDirection, double radius, const ZelRange& uRange,
                            const ZelRange& vRange, const ZelRange& uRangeAgain,
                            const ZelRange& vRangeAgain) {
    trace("define", origin, normal, uDirection, radius, uRange, vRange, uRangeAgain, vRangeAgain);
    shape() = {frame(origin, normal, uDirection, uRange, vRange), radius};
}

void ConeObject::define(const ZelVector3& origin, const ZelVector3& normal,
                        const ZelVector3& uDirection, double angle, const ZelRange& uRange,
                        const ZelRange& vRange, const ZelRange& uRangeAgain,
                        const ZelRange& vRangeAgain) {
    trace("define", origin, normal, uDirection, angle, uRange, vRange, uRangeAgain, vRangeAgain);
    shape() = {frame(origin, normal, uDirection, uRange, vRange), angle};
}

void SphereObject::define(const ZelVector3& origin, double radius, const ZelVector3& normal,
                          const ZelVector3& uDirection, const ZelRange& uRange,
                          const ZelRange& vRange, const void* reserved1st,
                          const void* reserved2nd) {
    trace("define", origin, radius, normal, uDirection, uRange, vRange, reserved1st, reserved2nd);
    shape() = {frame(origin, normal, uDirection, uRange, vRange), radius};
}

void TorusObject::define(const ZelVector3& origin, const ZelVector3& normal, double majorRadius,
                         double minorRadius, const ZelVector3& uDirection, const ZelRange& uRange,
                         const ZelRange& vRange, const void* reserved1st, const void* reserved2nd,
                         std::int32_t reserved3rd) {
    trace("define", origin, normal, majorRadius, minorRadius, uDirection, uRange, vRange,
          reserved1st, reserved2nd, reserved3rd);
    shape() = {frame(origin, normal, uDirection, uRange, vRange), majorRadius, minorRadius};
}

} // namespace host
