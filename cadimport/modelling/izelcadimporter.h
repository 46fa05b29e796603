// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host's topology builder. Entities are named by the identifiers of the messages; the importer
/// resolves them, whatever the order in which they come.
#pragma once

#include "cadimport/modelling/shapearguments.h"
#include "component/objects/izelunknown.h"

class IZelCurve;
class IZelSurface;

class IZelCADImporter : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelCADImporter";

    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    /// Opens a model whose accuracy is absolute or relative.
    virtual void beginModel(bool absolute, double accuracy) = 0;
    /// The box of the shell that the next createShell makes, in metres.
    virtual void setShellBox(const ZelBox3& box) = 0;
    virtual void reserved3() = 0;
    virtual void createEdge(std::int32_t edge) = 0;
    virtual void setEdgeFace(std::int32_t edge, std::int32_t side, std::int32_t face) = 0;
    virtual void reserved4() = 0;
    virtual void setEdgeSense(std::int32_t edge, std::int32_t side, bool sense) = 0;
    /// Takes a reference of its own.
    virtual void setEdgeCurve(std::int32_t edge, IZelCurve* curve) = 0;
    virtual void reserved5() = 0;
    virtual void reserved6() = 0;
    /// Copies the array.
    virtual void createLoop(std::int32_t loop, const std::int32_t* edges, std::int32_t count,
                            bool outer) = 0;
    virtual void createFace(std::int32_t face) = 0;
    /// Takes a reference of its own.
    virtual void setFaceSurface(std::int32_t face, IZelSurface* surface) = 0;
    virtual void addFaceLoop(std::int32_t face, std::int32_t loop) = 0;
    virtual void reserved7() = 0;
    /// Copies the array.
    virtual void createShell(std::int32_t shell, const std::int32_t* faces, std::int32_t count,
                             bool closed) = 0;
    virtual void reserved8() = 0;
    virtual void reserved9() = 0;
    /// Closes the model. The value is for IZelImportTarget::resolveModel and nobody else.
    virtual void* finishModel() = 0;
};
