// SPDX-License-Identifier: Apache-2.0
// A face with everything that the kernel has to work out for it, before it gets an identifier.
//
// Whatever the kernel throws, and whatever comes out unfit to be written, costs that face and, by a
// common edge, those beside it. So all of it happens here, and the planning behind it can't fail.
#pragma once

#include "server/geometry/borderlimit.h"
#include "server/geometry/edgecurve.h"
#include "server/geometry/facesurface.h"
#include "server/geometry/tolerances.h"
#include "server/report.h"

#include <Bnd_Box.hxx>
#include <TopTools_IndexedDataMapOfShapeListOfShape.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS_Shell.hxx>

#include <deque>

namespace server {

struct ConvertedFace {
    FaceSurface surface;
    Bnd_Box box;       ///< without a gap
    std::string fault; ///< why the face can't be written; empty when it can
};

struct ConvertedEdge {
    EdgeCurve curve;
    bool hasExtent = true; ///< without one it is left out of its loops
    std::string fault;
};

/// Each edge of a shell is converted once, whatever its orientation. References stay valid.
class FaceConversion {
public:
    FaceConversion(const TopoDS_Shell& shell, const Tolerances& tolerances, Report& report);

    ConvertedFace face(const TopoDS_Face& face);
    const ConvertedEdge& edge(const TopoDS_Edge& edge);

private:
    ConvertedEdge converted(const TopoDS_Edge& edge);
    std::string faultOfEdges(const TopoDS_Face& face);
    std::vector<BorderLimit> limitsAt(const TopoDS_Edge& edge);

    Tolerances tolerances_;
    Report& report_;
    BorderLimits borders_;
    TopTools_IndexedDataMapOfShapeListOfShape faces_; ///< of each edge
    TopTools_IndexedMapOfShape edgeShapes_;
    std::deque<ConvertedEdge> edges_; ///< of edgeShapes_
};

} // namespace server
