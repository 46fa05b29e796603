// SPDX-License-Identifier: Apache-2.0
// The importer of the reference host: keeps the topology that it is given as a plain record and
// names what it cannot keep.
#pragma once

#include "cadimport/modelling/izelcadimporter.h"
#include "host/modelling/importsession.h"

#include <set>

namespace host {

/// A model enters the session's record when it is finished. One that never began, and so has no
/// known unit, and one that was cut off are dropped whole and named.
class Importer : public IZelCADImporter {
public:
    explicit Importer(std::shared_ptr<ImportSession> session) : session_(std::move(session)) {}
    Importer(const Importer&) = delete;
    Importer& operator=(const Importer&) = delete;
    ~Importer() override;

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "Importer"; }

    void beginModel(bool absolute, double accuracy) override;
    void setShellBox(const ZelBox3& box) override;
    void createEdge(std::int32_t edge) override;
    void setEdgeFace(std::int32_t edge, std::int32_t side, std::int32_t face) override;
    void setEdgeSense(std::int32_t edge, std::int32_t side, bool sense) override;
    void setEdgeCurve(std::int32_t edge, IZelCurve* curve) override;
    void createLoop(std::int32_t loop, const std::int32_t* edges, std::int32_t edgeCount,
                    bool outer) override;
    void createFace(std::int32_t face) override;
    void setFaceSurface(std::int32_t face, IZelSurface* surface) override;
    void addFaceLoop(std::int32_t face, std::int32_t loop) override;
    void createShell(std::int32_t shell, const std::int32_t* faces, std::int32_t faceCount,
                     bool closed) override;
    /// An IZelImportedModel, always; its entry is null when the model was dropped.
    void* finishModel() override;

private:
    /// The model under way, with the shape objects that edges and faces hold until its end.
    struct OpenModel {
        bool begun = false;
        ModelRecord record;
        std::map<Identifier, IPtr<IZelCurve>> curves;
        std::map<Identifier, IPtr<IZelSurface>> surfaces;
        std::set<Identifier> shells;
        ZelBox3 nextBox;
    };

    EdgeRecord* findEdge(Identifier edge, std::int32_t side);
    FaceRecord* findFace(Identifier face);
    void giveUp(const char* why);
    bool keepModel();
    void resolveShapes();

    std::shared_ptr<ImportSession> session_;
    OpenModel model_;
};

} // namespace host
