// SPDX-License-Identifier: Apache-2.0
// What of each kind of curve and surface is a length.
#include "host/modelling/scaling.h"

namespace host {
namespace {

void scale(double& length, double factor) { length *= factor; }
void scale(ZelVector3& point, double factor) { point = point * factor; }
void scale(Range& range, double factor) {
    for (double& bound : range) bound *= factor;
}

template <class... Lengths> void scaleAll(double factor, Lengths&... lengths) {
    (scale(lengths, factor), ...);
}

} // namespace

void scale(LineRecord& line, double factor) { scaleAll(factor, line.start, line.end); }

void scale(ArcRecord& arc, double factor) { scaleAll(factor, arc.center, arc.radius); }

void scale(EllipseRecord& ellipse, double factor) {
    scaleAll(factor, ellipse.center, ellipse.bigHalfAxis, ellipse.littleHalfAxis);
}

void scale(PlaneRecord& plane, double factor) {
    scaleAll(factor, plane.origin, plane.uRange, plane.vRange);
}

void scale(CylinderRecord& cylinder, double factor) {
    scaleAll(factor, cylinder.origin, cylinder.radius, cylinder.vRange);
}

void scale(ConeRecord& cone, double factor) { scaleAll(factor, cone.origin, cone.vRange); }

void scale(SphereRecord& sphere, double factor) { scaleAll(factor, sphere.origin, sphere.radius); }

void scale(TorusRecord& torus, double factor) {
    scaleAll(factor, torus.origin, torus.majorRadius, torus.minorRadius);
}

void scale(NurbSurfaceRecord& surface, double factor) {
    for (ZelVector3& point : surface.points) scale(point, factor);
}

} // namespace host
