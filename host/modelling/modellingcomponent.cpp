// SPDX-License-Identifier: Apache-2.0
// Offering the importer and the shape objects.
#include "host/modelling/modellingcomponent.h"

#include "host/modelling/coordinatesystemobject.h"
#include "host/modelling/curveobjects.h"
#include "host/modelling/importer.h"
#include "host/modelling/importtarget.h"
#include "host/modelling/nurbsurfaceobject.h"
#include "host/modelling/surfaceobjects.h"

namespace host {
namespace {

template <class Interface, class Object>
void offer(ComponentManager& manager, const std::shared_ptr<ImportSession>& session) {
    manager.offerMaker(Interface::interfaceName, [session] { return new Object(session); });
}

void offerShapes(ComponentManager& manager, const std::shared_ptr<ImportSession>& session) {
    offer<IZelLine, LineObject>(manager, session);
    offer<IZelArc, ArcObject>(manager, session);
    offer<IZelEllipse, EllipseObject>(manager, session);
    offer<IZelPlane, PlaneObject>(manager, session);
    offer<IZelCylinder, CylinderObject>(manager, session);
    offer<IZelCone, ConeObject>(manager, session);
    offer<IZelSphere, SphereObject>(manager, session);
    offer<IZelTorus, TorusObject>(manager, session);
    offer<IZelNurbSurface, NurbSurfaceObject>(manager, session);
    offer<IZelCoordinateSystem, CoordinateSystemObject>(manager, session);
}

} // namespace

ModellingComponent::ModellingComponent(ComponentManager& manager, std::ostream* traceOutput,
                                       std::function<void()> onImporter)
    : session_(std::make_shared<ImportSession>(traceOutput)), target_(new ImportTarget(session_)) {
    offerShapes(manager, session_);
    manager.offerClass(zelImporterClassId, IZelCADImporter::interfaceName,
                       [session = session_, onImporter = std::move(onImporter)] {
                           if (onImporter) onImporter();
                           return new Importer(session);
                       });
}

void ModellingComponent::takeCoordinateSystems(const std::list<IZelFeature*>& features) {
    for (IZelFeature* feature : features) {
        const IPtr<IZelFeature> held(feature);
        if (auto* system = zelQuery<CoordinateSystemObject>(feature)) {
            session_->record.coordinateSystems.push_back(system->record());
        }
    }
}

void ModellingComponent::drop(std::string what, Identifier identifier, std::string why) {
    session_->drop(std::move(what), identifier, std::move(why));
}

} // namespace host
