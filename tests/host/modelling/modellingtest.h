// SPDX-License-Identifier: Apache-2.0
// A modelling component as a client meets it: objects by name, an importer by class.
#pragma once

#include "cadimport/modelling/curves.h"
#include "cadimport/modelling/importtarget.h"
#include "cadimport/modelling/izelcadimporter.h"
#include "cadimport/modelling/izelcoordinatesystem.h"
#include "cadimport/modelling/izelfeature.h"
#include "cadimport/modelling/surfaces.h"
#include "component/objects/sptr.h"
#include "host/modelling/modellingcomponent.h"
#include "tests/host/hosttest.h"
#include "zelbasictypes/math/zelmatrix4.h"

#include <sstream>

namespace host {

class ModellingTest : public HostTest {
protected:
    static IPtr<IZelCADImporter> makeImporter() {
        void* made = nullptr;
        zelCreateInstance(zelImporterClassId, IZelCADImporter::interfaceName, &made);
        return IPtr<IZelCADImporter>(static_cast<IZelCADImporter*>(made));
    }
    template <class Shape> static IZelFeature* featureOf(const SPtr<Shape>& shape) {
        return zelQuery<IZelFeature>(shape.iface);
    }
    /// A face with one edge all around, on a plane: enough topology to be whole.
    static void buildDisc(IZelCADImporter& importer, IZelCurve* curve, IZelSurface* surface) {
        const std::int32_t edge = 1;
        const std::int32_t face = 3;
        importer.createEdge(edge);
        if (curve) importer.setEdgeCurve(edge, curve);
        importer.setEdgeFace(edge, 0, face);
        importer.setEdgeSense(edge, 1, true);
        importer.createLoop(2, &edge, 1, true);
        importer.createFace(face);
        if (surface) importer.setFaceSurface(face, surface);
        importer.addFaceLoop(face, 2);
        importer.setShellBox({{0, 0, 0}, {1, 2, 3}});
        importer.createShell(4, &face, 1, false);
    }
    IZelImportedModel* resolve(void* finished) {
        return modelling.importTarget()->resolveModel(finished);
    }
    /// "what identifier: why" of everything dropped, one after the other.
    std::string dropped() const {
        std::string all;
        for (const DroppedRecord& loss : modelling.record().dropped) {
            all += loss.what + ' ' + std::to_string(loss.identifier) + ": " + loss.why + '\n';
        }
        return all;
    }

    std::ostringstream traced;
    ModellingComponent modelling{rootManager(), &traced};
    const ZelMatrix4 millimetres = ZelMatrix4::uniformScale(0.001);
};

} // namespace host
