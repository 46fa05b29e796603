// SPDX-License-Identifier: Apache-2.0
// Counting, integrating, checking.
#include "host/shape/measure.h"

#include "host/measure/faceintegral.h"
#include "host/shape/geometry.h"
#include "host/shape/kernelcall.h"

#include <BRepBndLib.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>

namespace host {
namespace {

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

/// Takes faces in as they are integrated and checked. Only closed shells have a volume.
class FaceSum {
public:
    explicit FaceSum(const BuiltModel& model) {
        Bnd_Box box;
        BRepBndLib::Add(model.shape, box, false);
        if (!box.IsVoid()) {
            reference_ = (box.CornerMin().XYZ() + box.CornerMax().XYZ()) * 0.5;
        }
        for (TopExp_Explorer shell(model.shape, TopAbs_SHELL); shell.More(); shell.Next()) {
            if (BRep_Tool::IsClosed(shell.Current())) {
                TopExp::MapShapes(shell.Current(), TopAbs_FACE, enclosing_);
            }
        }
    }

    void add(const TopoDS_Face& face) {
        const FaceIntegral integral = integralOf(face, reference_);
        areaMm2 += integral.area;
        if (enclosing_.Contains(face)) volumeMm3 += integral.volume;
        areValid = areValid && BRepCheck_Analyzer(face).IsValid();
    }

    double areaMm2 = 0.0, volumeMm3 = 0.0;
    bool areValid = true;

private:
    gp_Pnt reference_;
    TopTools_IndexedMapOfShape enclosing_;
};

FaceSum summed(const BuiltModel& model, const Progress& progress) {
    FaceSum sum(model);
    for (const auto& [identifier, face] : model.faces) {
        if (progress.isSkipped("measure", identifier)) {
            sum.areValid = false;
            continue;
        }
        progress.begin("measure", identifier);
        const auto& known = face;
        const std::string failure = kernelCall([&] { sum.add(known); });
        if (failure.empty()) continue;
        progress.drop("measure", identifier, failure);
        sum.areValid = false;
    }
    return sum;
}

/// Does one stage and names its failure.
template <class Work> void stage(const char* what, const Progress& progress, const Work& work) {
    if (progress.isSkipped(what, progress.model)) return;
    progress.begin(what, progress.model);
    const std::string failure = kernelCall(work);
    if (!failure.empty()) progress.drop(what, progress.model, failure);
}

} // namespace

RebuiltModel measured(const BuiltModel& model, const Progress& progress) {
    RebuiltModel result;
    count(model.shape, result);
    if (result.faces == 0) return result;
    const FaceSum sum = summed(model, progress);
    result.areaM2 = sum.areaMm2 / squareMillimetres;
    result.volumeM3 = sum.volumeMm3 / cubicMillimetres;
    stage("box", progress, [&] { result.boundingBoxM = boxOf(model.shape); });
    constexpr bool checkGeometryAgain = false;
    stage("check", progress, [&] {
        result.valid =
            sum.areValid && BRepCheck_Analyzer(model.shape, checkGeometryAgain).IsValid();
    });
    return result;
}

double volumeWithin(const TopoDS_Shape& shell) {
    double sum = 0.0;
    for (TopExp_Explorer walk(shell, TopAbs_FACE); walk.More(); walk.Next()) {
        sum += integralOf(TopoDS::Face(walk.Current()), gp_Pnt()).volume;
    }
    return sum;
}

} // namespace host
