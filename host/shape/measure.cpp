// SPDX-License-Identifier: Apache-2.0
// Counting, adding up, checking.
#include "host/shape/measure.h"

#include "host/measure/boundingbox.h"
#include "host/measure/validity.h"
#include "host/shape/geometry.h"
#include "host/shape/kernelcall.h"

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

std::array<double, 6> boxOf(const std::vector<ModelFace>& faces) {
    Bnd_Box box;
    for (const ModelFace& each : faces) box.Add(host::boxOf(each.face));
    std::array<double, 6> result{};
    if (box.IsVoid()) return result;
    box.Get(result[0], result[1], result[2], result[3], result[4], result[5]);
    for (double& bound : result) bound /= millimetresPerMetre;
    return result;
}

/// Only closed shells have a volume.
void sumUp(const BuiltModel& model, RebuiltModel& result) {
    TopTools_IndexedMapOfShape enclosing;
    for (TopExp_Explorer shell(model.shape, TopAbs_SHELL); shell.More(); shell.Next()) {
        if (BRep_Tool::IsClosed(shell.Current())) {
            TopExp::MapShapes(shell.Current(), TopAbs_FACE, enclosing);
        }
    }
    for (const ModelFace& each : model.faces) {
        if (!each.integral) continue;
        const double area = each.integral->area / squareMillimetres;
        const double volume = each.integral->volume / cubicMillimetres;
        result.faceMeasures.push_back({each.identifier, area, volume});
        result.areaM2 += area;
        if (enclosing.Contains(each.face)) result.volumeM3 += volume;
    }
}

/// Gathers what the checks say. Fault with a face is told once, with the face.
class Validation {
public:
    explicit Validation(const Progress& progress) : progress_(progress) {}

    void checkFace(const ModelFace& each) {
        const std::string reason = reasonNotToCheck(each.face);
        if (!reason.empty()) progress_.note("check", each.identifier, reason);
        isComplete_ = isComplete_ && reason.empty();
        if (reason.empty())
            check("check", each.identifier, each.identifier, [&] { return faultOf(each.face); });
    }
    void checkFit(const TopoDS_Shape& shape) {
        check("fit", progress_.model, 0, [&] { return faultOfFit(shape); });
    }
    std::optional<bool> verdict() const {
        if (!isValid_) return false;
        return isComplete_ ? std::optional(true) : std::nullopt;
    }

private:
    template <class Check>
    void check(const char* step, Identifier stepIdentifier, Identifier face, const Check& work) {
        if (progress_.isSkipped(step, stepIdentifier)) {
            isComplete_ = false;
            return;
        }
        progress_.begin(step, stepIdentifier);
        std::string fault;
        const std::string failure = kernelCall([&] { fault = work(); });
        if (!failure.empty()) progress_.note(step, stepIdentifier, "not checked: " + failure);
        if (!fault.empty()) progress_.drop("validity", face, fault);
        isComplete_ = isComplete_ && failure.empty();
        isValid_ = isValid_ && fault.empty();
    }

    const Progress& progress_;
    bool isValid_ = true, isComplete_ = true;
};

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
    sumUp(model, result);
    stage("box", progress, [&] { result.boundingBoxM = boxOf(model.faces); });
    Validation validation(progress);
    for (const ModelFace& each : model.faces) validation.checkFace(each);
    validation.checkFit(model.shape);
    result.valid = validation.verdict();
    return result;
}

} // namespace host
