// SPDX-License-Identifier: Apache-2.0
// Area and volume of a shape by the host's own integrals over its faces.
#pragma once

#include "host/measure/faceintegral.h"

#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Pnt.hxx>

namespace host {

inline FaceIntegral integralOver(const TopoDS_Shape& shape, const gp_Pnt& reference = gp_Pnt()) {
    FaceIntegral sum;
    for (TopExp_Explorer walk(shape, TopAbs_FACE); walk.More(); walk.Next()) {
        const FaceIntegral face = integralOf(TopoDS::Face(walk.Current()), reference);
        sum.area += face.area;
        sum.volume += face.volume;
    }
    return sum;
}

} // namespace host
