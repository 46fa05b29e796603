// SPDX-License-Identifier: Apache-2.0
// Counting, integrating, checking.
#include "host/shape/measure.h"

#include "host/shape/geometry.h"
#include "host/shape/kernelcall.h"

#include <BRepBndLib.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepGProp.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>

namespace host {
namespace {

/// The kernel's own default misjudges even simple parts.
constexpr double integrationTolerance = 1e-8;

constexpr double squareMillimetres = millimetresPerMetre * millimetresPerMetre;
constexpr double cubicMillimetres = squareMillimetres * millimetresPerMetre;

TopTools_IndexedMapOfShape partsOf(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind) {
    TopTools_IndexedMapOfShape parts;
    TopExp::MapShapes(shape, kind, parts);
    return parts;
}

void count(const TopoDS_Shape& shape, RebuiltModel& model) {
    model.faces = partsOf(shape, TopAbs_FACE).Extent();
    model.shells = partsOf(shape, TopAbs_SHELL).Extent();
    const TopTools_IndexedMapOfShape edges = partsOf(shape, TopAbs_EDGE);
    for (int i = 1; i <= edges.Extent(); ++i) {
        if (!BRep_Tool::Degenerated(TopoDS::Edge(edges(i)))) ++model.edges;
    }
    model.closed = model.shells > 0;
    for (TopExp_Explorer shell(shape, TopAbs_SHELL); shell.More(); shell.Next()) {
        model.closed = model.closed && BRep_Tool::IsClosed(shell.Current());
    }
}

std::array<double, 6> boxOf(const TopoDS_Shape& shape) {
    Bnd_Box box;
    BRepBndLib::AddOptimal(shape, box, false, false);
    std::array<double, 6> result{};
    if (box.IsVoid()) return result;
    box.SetGap(0.0);
    box.Get(result[0], result[1], result[2], result[3], result[4], result[5]);
    for (double& bound : result) bound /= millimetresPerMetre;
    return result;
}

void integrate(const TopoDS_Shape& shape, RebuiltModel& model) {
    GProp_GProps area;
    BRepGProp::SurfaceProperties(shape, area, integrationTolerance);
    model.areaM2 = area.Mass() / squareMillimetres;
    GProp_GProps volume;
    BRepGProp::VolumeProperties(shape, volume, integrationTolerance, true);
    model.volumeM3 = volume.Mass() / cubicMillimetres;
}

/// Does one stage and names its failure.
template <class Work> void stage(const char* what, const Progress& progress, const Work& work) {
    if (progress.isSkipped(what, progress.model)) return;
    progress.begin(what, progress.model);
    const std::string failure = kernelCall(work);
    if (!failure.empty()) progress.drop(what, progress.model, failure);
}

} // namespace

RebuiltModel measured(const TopoDS_Shape& shape, const Progress& progress) {
    RebuiltModel model;
    count(shape, model);
    if (model.faces == 0) return model;
    stage("measure", progress, [&] { integrate(shape, model); });
    stage("box", progress, [&] { model.boundingBoxM = boxOf(shape); });
    stage("check", progress, [&] { model.valid = BRepCheck_Analyzer(shape).IsValid(); });
    return model;
}

double roughVolume(const TopoDS_Shape& shell) {
    GProp_GProps volume;
    BRepGProp::VolumeProperties(shell, volume);
    return volume.Mass();
}

} // namespace host
