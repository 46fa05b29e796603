// SPDX-License-Identifier: Apache-2.0
// The host's topology builder. Entities are named by the identifiers of the messages; the importer
// resolves them, whatever the order in which they come.
#pragma once

#include "cadimport/modelling/shapearguments.h"
#include "component/objects/izelunknown.h"
#include "zelbasictypes/data/zelguid.h"

class IZelCurve;
class IZelSurface;

/// The class that the host's manager makes importers of. An import asks it for one with
/// IZelComponentManager::createInstance, by this identifier and the interface below.
inline constexpr ZelGuid zelImporterClassId{
    0x57E3D220, 0x2A63, 0x43D7, {0xBC, 0x5F, 0xBF, 0x59, 0x47, 0x6A, 0x48, 0xC9}};

class IZelCADImporter : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCADImporter";

    virtual void reserved1() {}
    virtual void reserved2() {}
    /// Opens a model whose accuracy is absolute or relative.
    virtual void beginModel(bool absolute, double accuracy) = 0;
    /// The box of the shell that the next createShell makes, in metres.
    virtual void setShellBox(const ZelBox3& box) = 0;
    virtual void reserved3() {}
    virtual void createEdge(std::int32_t edge) = 0;
    virtual void setEdgeFace(std::int32_t edge, std::int32_t side, std::int32_t face) = 0;
    virtual void reserved4() {}
    virtual void setEdgeSense(std::int32_t edge, std::int32_t side, bool sense) = 0;
    /// Takes a reference of its own.
    virtual void setEdgeCurve(std::int32_t edge, IZelCurve* curve) = 0;
    virtual void reserved5() {}
    virtual void reserved6() {}
    /// Copies the array.
    virtual void createLoop(std::int32_t loop, const std::int32_t* edges, std::int32_t count,
                            bool outer) = 0;
    virtual void createFace(std::int32_t face) = 0;
    /// Takes a reference of its own.
    virtual void setFaceSurface(std::int32_t face, IZelSurface* surface) = 0;
    virtual void addFaceLoop(std::int32_t face, std::int32_t loop) = 0;
    virtual void reserved7() {}
    /// Copies the array.
    virtual void createShell(std::int32_t shell, const std::int32_t* faces, std::int32_t count,
                             bool closed) = 0;
    virtual void reserved8() {}
    virtual void reserved9() {}
    /// Closes the model. The value is for IZelImportTarget::resolveModel and nobody else.
    virtual void* finishModel() = 0;
};
