// SPDX-License-Identifier: Apache-2.0
/// @file
/// Creator: turns the messages of a model file into objects of the host.
///
/// It keeps no copy of the model. The host's importer builds the topology, and the host's shape
/// objects hold curves and surfaces. The Creator remembers which object belongs to which identifier
/// of the open model, how that model is scaled, and what it returns when the file has been read.
///
/// For each reading of a file, make a Creator, pass each valid message to it by `accept` in the
/// order of the file, then take the lists. No order is enforced, but a curve or surface is known
/// only to the edges and faces that follow it, and identifiers end with their model. Whatever can't
/// be done is skipped silently: an invalid message, an object that the host doesn't supply, an
/// identifier that refers to nothing.
#pragma once

#include "cadimport/controlmessages.h"
#include "cadimport/curvemessages.h"
#include "cadimport/modelling/curves.h"
#include "cadimport/modelling/izelcadimporter.h"
#include "cadimport/modelling/surfaces.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"
#include "component/objects/iptr.h"
#include "zelbasictypes/math/zelmatrix4.h"

#include <list>
#include <map>
#include <memory>

class BitVector;
class IZelFeature;
class IZelImportTarget;

namespace CADImport {

/// The visitor that builds a model in the host. One thread uses a Creator; it has no locks. Lengths
/// reach the host in model units and are scaled to metres by the shape objects; see
/// IZelFeature::transform().
class Creator : public BaseVisitor,
                public Visitor<CreateArc, void, true>,
                public Visitor<CreateBody, void, true>,
                public Visitor<CreateCoedge, void, true>,
                public Visitor<CreateCone, void, true>,
                public Visitor<CreateCoordinateSystem, void, true>,
                public Visitor<CreateCylinder, void, true>,
                public Visitor<CreateEdge, void, true>,
                public Visitor<CreateEllipse, void, true>,
                public Visitor<CreateFace, void, true>,
                public Visitor<CreateGroup, void, true>,
                public Visitor<CreateLine, void, true>,
                public Visitor<CreateLoop, void, true>,
                public Visitor<CreateNURBSCurve, void, true>,
                public Visitor<CreateNURBSSurface, void, true>,
                public Visitor<CreatePlane, void, true>,
                public Visitor<CreateShell, void, true>,
                public Visitor<CreateSphere, void, true>,
                public Visitor<CreateTorus, void, true>,
                public Visitor<CreateVertex, void, true>,
                public Visitor<EndModel, void, true>,
                public Visitor<NewModel, void, true>,
                public Visitor<OKMessage, void, true> {
public:
    /// Makes the importer from the host's class for it. `importTarget` resolves finished models; it
    /// isn't owned and must outlive the Creator. It may be null, and then no model is listed.
    explicit Creator(IZelImportTarget* importTarget);
    ~Creator() override;
    Creator(const Creator&) = delete;
    Creator& operator=(const Creator&) = delete;

    /// False when the host has no class for the importer. Such a Creator must not be given any
    /// message.
    bool hasImporter() const { return static_cast<bool>(importer); }

    /// One entry for each finished model that the host has resolved, in order. The entries belong
    /// to the host.
    const std::list<void*>& models() const { return models_; }
    /// Replaces the two lists by one entry for each coordinate system, at the same positions. The
    /// features come without a reference and may be null; the bit vectors are new. The caller owns
    /// both from here on.
    void coordinateSystems(std::list<IZelFeature*>& features, std::list<BitVector*>& masks) const;

    /// Builds the host's counterpart of the entity. Empty ones have none: the host needs no such
    /// entity.
    /// @{
    void visit(const CreateArc& message) override;
    void visit(const CreateBody&) override {}
    void visit(const CreateCoedge&) override {}
    void visit(const CreateCone& message) override;
    void visit(const CreateCoordinateSystem& message) override;
    void visit(const CreateCylinder& message) override;
    void visit(const CreateEdge& message) override;
    void visit(const CreateEllipse& message) override;
    void visit(const CreateFace& message) override;
    void visit(const CreateGroup&) override {}
    void visit(const CreateLine& message) override;
    /// @}
    /// Skipped when it names fewer edges than coedges.
    void visit(const CreateLoop& message) override;
    /// Builds nothing: an edge on such a curve reaches the importer without a curve.
    void visit(const CreateNURBSCurve& message) override;
    /// Skipped when the grid has no rows or a row shorter than the first.
    void visit(const CreateNURBSSurface& message) override;
    /// As the first ones. EndModel finishes the model and forgets its identifiers.
    /// @{
    void visit(const CreatePlane& message) override;
    void visit(const CreateShell& message) override;
    void visit(const CreateSphere& message) override;
    void visit(const CreateTorus& message) override;
    void visit(const CreateVertex&) override {}
    void visit(const EndModel& message) override;
    void visit(const NewModel& message) override;
    void visit(const OKMessage&) override {}
    /// @}

private:
    template <class Shape, class Stored, class Message, class Define>
    void fileShape(const Message& message, std::map<int, IPtr<Stored>>& table, Define define);
    void scale(IZelUnknown* shape) const;

    IZelImportTarget* importTarget;
    IPtr<IZelCADImporter> importer;
    std::map<int, IPtr<IZelCurve>> curves;
    std::map<int, IPtr<IZelSurface>> surfaces;
    std::list<void*> models_;
    std::list<IZelFeature*> coordinateSystems_;
    std::list<BitVector*> coordinateSystemMasks;
    double modelScale = 0.0; ///< metres per model unit; 0.0 while no model is open
    std::unique_ptr<ZelMatrix4> modelTransform; ///< null when the model needs no scaling
};

} // namespace CADImport
