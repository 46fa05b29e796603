// SPDX-License-Identifier: Apache-2.0
// From the plan to faces, from faces to shells, from shells to solids.
#include "host/shape/modelbuilder.h"

#include "host/shape/faces.h"
#include "host/shape/kernelcall.h"
#include "host/shape/solids.h"

#include <BRepBndLib.hxx>
#include <BRep_Builder.hxx>
#include <Bnd_Box.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Shell.hxx>

namespace host {
namespace {

TopoDS_Face buildFace(const PlannedFace& planned, const EdgeStore& store,
                      const Progress& progress) {
    progress.begin("face", planned.identifier);
    BuiltFace built;
    std::string fault = kernelCall([&] { built = faceOf(planned, store); });
    if (fault.empty()) fault = built.fault;
    if (fault.empty()) return built.face;
    progress.drop("face", planned.identifier, fault);
    return {};
}

/// A shell and the place of its faces in the list of the model's.
struct BuiltShell {
    TopoDS_Shell shell;
    std::size_t firstFace = 0, endFace = 0;
};

std::vector<BuiltShell> shellsOf(const Plan& plan, const EdgeStore& store, const Progress& progress,
                                 std::vector<ModelFace>& faces) {
    const BRep_Builder builder;
    std::vector<BuiltShell> shells;
    for (const PlannedShell& planned : plan.shells) {
        BuiltShell built{{}, faces.size(), 0};
        builder.MakeShell(built.shell);
        for (const std::size_t place : planned.faces) {
            const TopoDS_Face face = buildFace(plan.faces[place], store, progress);
            if (face.IsNull()) continue;
            builder.Add(built.shell, face);
            faces.push_back({plan.faces[place].identifier, face, {}});
        }
        built.endFace = faces.size();
        if (built.firstFace == built.endFace) {
            progress.drop("shell", planned.identifier, "it has no face");
        } else {
            shells.push_back(built);
        }
    }
    return shells;
}

gp_Pnt middleOf(const std::vector<ModelFace>& faces) {
    Bnd_Box box;
    for (const ModelFace& each : faces) BRepBndLib::Add(each.face, box, false);
    if (box.IsVoid() || box.IsOpen()) return {};
    return gp_Pnt((box.CornerMin().XYZ() + box.CornerMax().XYZ()) * 0.5);
}

void measure(std::vector<ModelFace>& faces, const Progress& progress) {
    gp_Pnt middle;
    (void)kernelCall([&] { middle = middleOf(faces); }); // any other point does, less exactly
    for (ModelFace& each : faces) {
        if (progress.isSkipped("measure", each.identifier)) continue;
        progress.begin("measure", each.identifier);
        const std::string fault =
            kernelCall([&] { each.integral = integralOf(each.face, middle); });
        if (!fault.empty()) progress.drop("measure", each.identifier, fault);
    }
}

MeasuredShell measuredShell(const BuiltShell& built, const std::vector<ModelFace>& faces) {
    MeasuredShell result{built.shell, 0.0};
    for (std::size_t i = built.firstFace; i < built.endFace; ++i) {
        if (faces[i].integral) result.volume += faces[i].integral->volume;
    }
    return result;
}

} // namespace

BuiltModel builtModel(const ModelRecord& model, const Progress& progress) {
    TopoDS_Compound compound;
    BRep_Builder().MakeCompound(compound);
    BuiltModel result{compound, {}};
    if (progress.isSkipped("model", progress.model)) return result;
    const Plan plan = planOf(model, progress);
    progress.begin("model", progress.model);
    const EdgeStore store(plan);
    const std::vector<BuiltShell> shells = shellsOf(plan, store, progress, result.faces);
    measure(result.faces, progress);
    progress.begin("model", progress.model);
    const std::string fault = kernelCall([&] {
        store.settleTolerances();
        std::vector<MeasuredShell> measured;
        for (const BuiltShell& shell : shells) {
            measured.push_back(measuredShell(shell, result.faces));
        }
        addSolids(measured, compound);
    });
    if (!fault.empty()) progress.drop("model", progress.model, fault);
    return result;
}

} // namespace host
