// SPDX-License-Identifier: Apache-2.0
// Keeping a coordinate system.
#include "host/modelling/coordinatesystemobject.h"

#include "component/objects/queryinterface.h"
#include "zelbasictypes/math/zelmatrix4.h"

namespace host {

CoordinateSystemObject::CoordinateSystemObject(std::shared_ptr<ImportSession> session)
    : session_(std::move(session)), name_(session_->nameFor(IZelCoordinateSystem::interfaceName)) {}

void CoordinateSystemObject::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelCoordinateSystem, IZelFeature>(this, interfaceName, name, result);
}

void CoordinateSystemObject::setOrigin(const ZelVector3& origin) {
    session_->trace.call(name_, "setOrigin", origin);
    record_.origin = origin;
}

void CoordinateSystemObject::setAxes(const ZelVector3& xDirection, const ZelVector3& yDirection) {
    session_->trace.call(name_, "setAxes", xDirection, yDirection);
    record_.xAxis = xDirection;
    record_.yAxis = yDirection;
}

void CoordinateSystemObject::transform(const ZelMatrix4* matrix) {
    session_->trace.call(name_, "transform", matrix);
    if (!matrix) return;
    const double factor = matrix->m[0];
    record_.origin = record_.origin * factor;
    record_.xAxis = record_.xAxis * factor;
    record_.yAxis = record_.yAxis * factor;
}

} // namespace host
