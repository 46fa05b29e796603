// SPDX-License-Identifier: Apache-2.0
// Step by step, so that a failure can say which one it was.
#include "server/writing/faceconversion.h"

#include "host/measure/border.h"
#include "host/measure/boundingbox.h"
#include "server/geometry/soundness.h"

#include <BRep_Tool.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>

#include <functional>

namespace server {
namespace {

/// What the step says, or what the kernel threw in it.
std::string guarded(const char* step, const std::function<std::string()>& perform) {
    try {
        return perform();
    } catch (const Standard_Failure& failure) {
        return std::string("the geometry kernel failed on ") + step + ": " +
               failure.DynamicType()->Name() + " " + failure.GetMessageString();
    }
}

std::string takeBox(const TopoDS_Face& face, Bnd_Box& box) {
    box = host::boxOf(face);
    return isWithinReach(box) ? "" : "it reaches beyond any place";
}

} // namespace

FaceConversion::FaceConversion(const TopoDS_Shell& shell, const Tolerances& tolerances,
                               Report& report)
    : tolerances_(tolerances), report_(report), borders_(tolerances) {
    TopExp::MapShapesAndAncestors(shell, TopAbs_EDGE, TopAbs_FACE, faces_);
}

ConvertedFace FaceConversion::face(const TopoDS_Face& face) {
    ConvertedFace result;
    std::string& fault = result.fault;
    fault = guarded("its parts", [&] { return faultOf(face); });
    if (!fault.empty()) return result;
    fault = guarded("its surface", [&] {
        result.surface = faceSurface(face, tolerances_.surface);
        return faultOf(result.surface);
    });
    if (fault.empty()) fault = faultOfEdges(face);
    if (fault.empty()) fault = guarded("its box", [&] { return takeBox(face, result.box); });
    return result;
}

std::string FaceConversion::faultOfEdges(const TopoDS_Face& face) {
    int place = 0;
    for (TopExp_Explorer walk(face, TopAbs_EDGE); walk.More(); walk.Next()) {
        ++place;
        if (!host::isBoundary(walk.Current())) continue;
        const std::string& fault = edge(TopoDS::Edge(walk.Current())).fault;
        if (!fault.empty()) return "its edge " + std::to_string(place) + ": " + fault;
    }
    return {};
}

const ConvertedEdge& FaceConversion::edge(const TopoDS_Edge& edge) {
    const auto index = static_cast<std::size_t>(edgeShapes_.Add(edge));
    if (index > edges_.size()) edges_.push_back(converted(edge));
    return edges_[index - 1];
}

/// Faces that can't be written anyway set no limit.
std::vector<BorderLimit> FaceConversion::limitsAt(const TopoDS_Edge& edge) {
    std::vector<TopoDS_Face> sound;
    for (const TopoDS_Shape& face : faces_.FindFromKey(edge)) {
        if (faultOf(TopoDS::Face(face)).empty()) sound.push_back(TopoDS::Face(face));
    }
    return borders_.at(edge, sound);
}

ConvertedEdge FaceConversion::converted(const TopoDS_Edge& edge) {
    ConvertedEdge result;
    result.fault = guarded("its curve", [&]() -> std::string {
        if (!canBeSent(edge)) return "it has neither a bounded curve nor two vertices";
        result.hasExtent = !hasNoExtent(edge, tolerances_.shortest);
        if (!result.hasExtent) return {};
        const TopoDS_Edge forward = TopoDS::Edge(edge.Oriented(TopAbs_FORWARD));
        result.curve = edgeCurve(forward, tolerances_, [&] { return limitsAt(forward); });
        return faultOf(result.curve);
    });
    if (!result.hasExtent && !BRep_Tool::Degenerated(edge)) {
        report_.noted("edge", 0, "it is too short to have a curve");
    }
    return result;
}

} // namespace server
