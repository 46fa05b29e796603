// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host's builder of topology.
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

/// Builds the topology of one model at a time, on the thread of the import. Entities are identified
/// by the numbers in the messages; the importer resolves them in whatever order they arrive.
/// Failure isn't reported.
class IZelCADImporter : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCADImporter";

    virtual void reserved1() {}
    virtual void reserved2() {}
    /// Opens a model. `accuracy` is a length if `absolute` is true, else relative.
    virtual void beginModel(bool absolute, double accuracy) = 0;
    /// The bounding box, in metres, of the shell that the next createShell() makes.
    virtual void setShellBox(const ZelBox3& box) = 0;
    virtual void reserved3() {}
    /// Makes an edge.
    virtual void createEdge(std::int32_t edge) = 0;
    /// Sets the face on side 0 or 1 of an edge; 0 is none.
    virtual void setEdgeFace(std::int32_t edge, std::int32_t side, std::int32_t face) = 0;
    virtual void reserved4() {}
    /// Sets whether the curve is reversed on side 0 or 1; the sides are opposite.
    virtual void setEdgeSense(std::int32_t edge, std::int32_t side, bool sense) = 0;
    /// Sets the curve, to which the importer takes a reference.
    virtual void setEdgeCurve(std::int32_t edge, IZelCurve* curve) = 0;
    virtual void reserved5() {}
    virtual void reserved6() {}
    /// Makes a loop of `count` edges in order; the array is copied. `outer` marks the loop that
    /// bounds a face from outside.
    virtual void createLoop(std::int32_t loop, const std::int32_t* edges, std::int32_t count,
                            bool outer) = 0;
    /// Makes a face.
    virtual void createFace(std::int32_t face) = 0;
    /// Sets the surface, to which the importer takes a reference.
    virtual void setFaceSurface(std::int32_t face, IZelSurface* surface) = 0;
    /// Adds a loop to a face.
    virtual void addFaceLoop(std::int32_t face, std::int32_t loop) = 0;
    virtual void reserved7() {}
    /// Makes a shell of `count` faces; the array is copied.
    virtual void createShell(std::int32_t shell, const std::int32_t* faces, std::int32_t count,
                             bool closed) = 0;
    virtual void reserved8() {}
    virtual void reserved9() {}
    /// Closes the model. The result is only for IZelImportTarget::resolveModel().
    virtual void* finishModel() = 0;
};
