// SPDX-License-Identifier: Apache-2.0
// The modelling component: what the manager offers for an import, and what came of it.
#pragma once

#include "host/componentmanager.h"
#include "host/modelling/importsession.h"

#include <functional>
#include <list>

class IZelFeature;
class IZelImportTarget;

namespace host {

/// Serves one run. The objects that it makes keep what they share alive; the trace's stream must
/// outlive them all.
class ModellingComponent {
public:
    /// Offers the importer's class and a maker for each kind of shape object. `onImporter`, when
    /// given, is called whenever an importer is made, which a client does each time before it
    /// reads a model file.
    explicit ModellingComponent(ComponentManager& manager, std::ostream* traceOutput = nullptr,
                                std::function<void()> onImporter = {});

    IZelImportTarget* importTarget() const { return target_.iface; }
    const ImportRecord& record() const { return session_->record; }
    /// Takes over coordinate systems that come without a reference: their records are kept and the
    /// objects let go. Null ones are passed over.
    void takeCoordinateSystems(const std::list<IZelFeature*>& features);
    void drop(std::string what, Identifier identifier, std::string why);

private:
    std::shared_ptr<ImportSession> session_;
    IPtr<IZelImportTarget> target_;
};

} // namespace host
