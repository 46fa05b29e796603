// SPDX-License-Identifier: Apache-2.0
// Statuses of the kernel, and where it keeps them.
#include "host/measure/validity.h"

#include <BRepCheck_Analyzer.hxx>
#include <BRepCheck_ListOfStatus.hxx>
#include <BRepCheck_Result.hxx>
#include <BRepCheck_Shell.hxx>
#include <BRepCheck_Solid.hxx>
#include <BRep_Tool.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>

#include <map>

namespace host {
namespace {

constexpr int mostLoops = 500;

std::string textOf(BRepCheck_Status status) {
    static const std::map<BRepCheck_Status, const char*> texts{
        {BRepCheck_InvalidPointOnCurve, "a vertex isn't on its curve"},
        {BRepCheck_InvalidPointOnCurveOnSurface, "a vertex isn't on its curve in the surface"},
        {BRepCheck_InvalidPointOnSurface, "a vertex isn't on its surface"},
        {BRepCheck_No3DCurve, "an edge has no curve"},
        {BRepCheck_Multiple3DCurve, "an edge has two curves"},
        {BRepCheck_Invalid3DCurve, "an edge has an invalid curve"},
        {BRepCheck_NoCurveOnSurface, "an edge has no curve in the surface"},
        {BRepCheck_InvalidCurveOnSurface, "an edge isn't on its surface"},
        {BRepCheck_InvalidCurveOnClosedSurface, "an edge isn't on its closed surface"},
        {BRepCheck_InvalidSameRangeFlag, "the curves of an edge have different ranges"},
        {BRepCheck_InvalidSameParameterFlag, "the curves of an edge run at different speeds"},
        {BRepCheck_InvalidDegeneratedFlag, "an edge without extent has one"},
        {BRepCheck_FreeEdge, "an edge has one face only"},
        {BRepCheck_InvalidMultiConnexity, "an edge has too many faces"},
        {BRepCheck_InvalidRange, "an edge has an invalid range"},
        {BRepCheck_EmptyWire, "a loop is empty"},
        {BRepCheck_RedundantEdge, "a loop has an edge too often"},
        {BRepCheck_SelfIntersectingWire, "a loop crosses itself"},
        {BRepCheck_NoSurface, "it has no surface"},
        {BRepCheck_InvalidWire, "a loop is invalid"},
        {BRepCheck_RedundantWire, "it has a loop twice"},
        {BRepCheck_IntersectingWires, "its loops cross each other"},
        {BRepCheck_InvalidImbricationOfWires, "its loops don't lie in each other as they should"},
        {BRepCheck_EmptyShell, "a shell is empty"},
        {BRepCheck_RedundantFace, "a shell has a face twice"},
        {BRepCheck_InvalidImbricationOfShells, "shells don't lie in each other as they should"},
        {BRepCheck_UnorientableShape, "its sides can't be told apart"},
        {BRepCheck_NotClosed, "a loop or a shell isn't closed"},
        {BRepCheck_NotConnected, "its parts aren't connected"},
        {BRepCheck_BadOrientation, "it is turned the wrong way"},
        {BRepCheck_BadOrientationOfSubshape, "a part of it is turned the wrong way"},
        {BRepCheck_InvalidToleranceValue, "a tolerance is too great"},
        {BRepCheck_EnclosedRegion, "a shell lies inside another"},
        {BRepCheck_CheckFail, "the check itself failed"},
    };
    const auto found = texts.find(status);
    return found != texts.end() ? found->second : "fault " + std::to_string(status);
}

std::string firstOf(const BRepCheck_ListOfStatus& statuses) {
    for (const BRepCheck_Status status : statuses) {
        if (status != BRepCheck_NoError) return textOf(status);
    }
    return {};
}

/// Of a part by itself, and in each shape that it was checked within.
std::string faultIn(const Handle(BRepCheck_Result) & result) {
    std::string fault = firstOf(result->Status());
    result->InitContextIterator();
    for (; fault.empty() && result->MoreShapeInContext(); result->NextShapeInContext()) {
        fault = firstOf(result->StatusOnShape());
    }
    return fault;
}

std::string faultOfShell(const TopoDS_Shell& shell) {
    const Handle(BRepCheck_Shell) check = new BRepCheck_Shell(shell);
    std::string fault = firstOf(check->Status());
    if (!fault.empty() || !BRep_Tool::IsClosed(shell)) return fault;
    if (check->Closed() != BRepCheck_NoError) return textOf(check->Closed());
    const BRepCheck_Status side = check->Orientation();
    return side == BRepCheck_NoError ? std::string() : textOf(side);
}

} // namespace

std::string faultOf(const TopoDS_Face& face) {
    const BRepCheck_Analyzer check(face);
    if (check.IsValid()) return {};
    TopTools_IndexedMapOfShape parts;
    TopExp::MapShapes(face, parts);
    for (int i = parts.Extent(); i >= 1; --i) { // the smallest parts last: they are the causes
        std::string fault = faultIn(check.Result(parts(i)));
        if (!fault.empty()) return fault;
    }
    return "the kernel doesn't say why";
}

std::string reasonNotToCheck(const TopoDS_Face& face) {
    int loops = 0;
    for (TopExp_Explorer walk(face, TopAbs_WIRE); walk.More(); walk.Next()) ++loops;
    if (loops <= mostLoops) return {};
    return "not checked: it has " + std::to_string(loops) +
           " loops, and the kernel compares each with every other";
}

std::string faultOfFit(const TopoDS_Shape& shape) {
    for (TopExp_Explorer walk(shape, TopAbs_SHELL); walk.More(); walk.Next()) {
        std::string fault = faultOfShell(TopoDS::Shell(walk.Current()));
        if (!fault.empty()) return fault;
    }
    for (TopExp_Explorer walk(shape, TopAbs_SOLID); walk.More(); walk.Next()) {
        const Handle(BRepCheck_Solid) check = new BRepCheck_Solid(TopoDS::Solid(walk.Current()));
        std::string fault = firstOf(check->Status());
        if (!fault.empty()) return fault;
    }
    return {};
}

} // namespace host
