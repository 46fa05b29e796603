// SPDX-License-Identifier: Apache-2.0
// A face on its own is transferred as readily as a solid, and one that was already isn't again.
#include "server/reading/facerescue.h"

#include "server/reading/transferlosses.h"

#include <Interface_InterfaceModel.hxx>
#include <Standard_Failure.hxx>
#include <StepRepr_MappedItem.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepShape_ConnectedFaceSet.hxx>
#include <StepShape_FaceSurface.hxx>
#include <StepShape_ManifoldSolidBrep.hxx>

#include <string>
#include <vector>

namespace server {
namespace {

using Entity = Handle(Standard_Transient);

template <class Type> bool is(const Entity& entity) {
    return !Handle(Type)::DownCast(entity).IsNull();
}

void appendFaces(const Handle(StepShape_ManifoldSolidBrep) & solid, std::vector<Entity>& faces) {
    const Handle(StepShape_ConnectedFaceSet) shell = solid->Outer();
    if (shell.IsNull()) return;
    for (int i = 1; i <= shell->NbCfsFaces(); ++i) {
        const Entity face = shell->CfsFacesValue(i);
        if (is<StepShape_FaceSurface>(face)) faces.push_back(face);
    }
}

/// Empty for an assembly.
std::vector<Entity> facesOfLostSolids(const STEPControl_Reader& reader) {
    const Handle(Interface_InterfaceModel) model = reader.Model();
    std::vector<Entity> faces;
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const Entity entity = model->Value(i);
        if (is<StepRepr_MappedItem>(entity) || is<StepRepr_NextAssemblyUsageOccurrence>(entity)) {
            return {};
        }
        const auto solid = Handle(StepShape_ManifoldSolidBrep)::DownCast(entity);
        if (!solid.IsNull() && !hasResult(reader, solid)) appendFaces(solid, faces);
    }
    return faces;
}

bool transferred(STEPControl_Reader& reader, const Entity& face) {
    try {
        return reader.TransferEntity(face);
    } catch (const Standard_Failure&) {
        return false;
    }
}

} // namespace

void rescueFaces(STEPControl_Reader& reader, Report& report) {
    const std::vector<Entity> lost = facesOfLostSolids(reader);
    std::size_t count = 0;
    for (const Entity& face : lost) count += transferred(reader, face) ? 1 : 0;
    if (count == 0) return;
    report.converted({"faces", 0, "faces of a solid that failed",
                      std::to_string(count) + " loose faces", "transferred one by one"});
}

} // namespace server
