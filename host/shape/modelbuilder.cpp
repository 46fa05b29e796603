// SPDX-License-Identifier: Apache-2.0
// From the plan to faces, from faces to shells, from shells to solids.
#include "host/shape/modelbuilder.h"

#include "host/shape/faces.h"
#include "host/shape/kernelcall.h"
#include "host/shape/solids.h"

#include <BRep_Builder.hxx>
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

std::vector<TopoDS_Shell> shellsOf(const Plan& plan, const EdgeStore& store,
                                   const Progress& progress, BuiltModel& result) {
    const BRep_Builder builder;
    std::vector<TopoDS_Shell> shells;
    for (const PlannedShell& planned : plan.shells) {
        TopoDS_Shell shell;
        builder.MakeShell(shell);
        bool isEmpty = true;
        for (const std::size_t place : planned.faces) {
            const TopoDS_Face face = buildFace(plan.faces[place], store, progress);
            if (face.IsNull()) continue;
            builder.Add(shell, face);
            result.faces.emplace_back(plan.faces[place].identifier, face);
            isEmpty = false;
        }
        if (isEmpty) {
            progress.drop("shell", planned.identifier, "it has no face");
        } else {
            shells.push_back(shell);
        }
    }
    return shells;
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
    const std::vector<TopoDS_Shell> shells = shellsOf(plan, store, progress, result);
    progress.begin("model", progress.model);
    const std::string fault = kernelCall([&] {
        store.settleTolerances();
        addSolids(shells, compound);
    });
    if (!fault.empty()) progress.drop("model", progress.model, fault);
    return result;
}

} // namespace host
