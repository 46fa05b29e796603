// SPDX-License-Identifier: Apache-2.0
// Collecting knots and control points.
#include "host/modelling/nurbsurfaceobject.h"

namespace host {
namespace {

template <class T> void put(std::vector<T>& list, std::size_t index, const T& value) {
    if (index >= list.size()) list.resize(index + 1);
    list[index] = value;
}

void putKnot(std::vector<double>& knots, std::int32_t index, double knot) {
    if (index >= 0) put(knots, static_cast<std::size_t>(index), knot);
}

} // namespace

void NurbSurfaceObject::define(bool rational, std::int32_t degreeU, std::int32_t degreeV,
                               std::int32_t rows, std::int32_t columns) {
    trace("define", rational, degreeU, degreeV, rows, columns);
    shape() = {rational, degreeU, degreeV, rows, columns, {}, {}, {}, {}};
}

void NurbSurfaceObject::setKnotU(std::int32_t index, double knot) {
    trace("setKnotU", index, knot);
    putKnot(shape().knotsU, index, knot);
}

void NurbSurfaceObject::setKnotV(std::int32_t index, double knot) {
    trace("setKnotV", index, knot);
    putKnot(shape().knotsV, index, knot);
}

void NurbSurfaceObject::setControlPoint(std::int32_t row, std::int32_t column,
                                        const ZelVector3& point, double w) {
    trace("setControlPoint", row, column, point, w);
    NurbSurfaceRecord& surface = shape();
    if (row < 0 || row >= surface.rows || column < 0 || column >= surface.columns) return;
    const auto index = static_cast<std::size_t>(row) * static_cast<std::size_t>(surface.columns) +
                       static_cast<std::size_t>(column);
    put(surface.points, index, point);
    put(surface.weights, index, w);
}

} // namespace host
