// SPDX-License-Identifier: Apache-2.0
// A component, loaded from its file and brought up as any host does it.
#pragma once

#include "client/itessoracadimporterclient.h"
#include "component/izelcomponent.h"
#include "component/objects/iptr.h"
#include "platform/module.h"

#include <QString>

#include <string>

class IZelComponentManager;

namespace host {

/// Ends the component and unloads its file: what came from the module, its texts included, is gone
/// before, and the manager lives longer.
class LoadedModule {
public:
    LoadedModule() = default;
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;
    ~LoadedModule();

    /// Loads the file, makes its component and hands it the manager. Empty on success, otherwise
    /// the reason in one line.
    std::string load(const QString& fileName, IZelComponentManager& manager);

    /// A new import client; null when the component offers none, or something else in its place.
    IPtr<ITessoraCADImporterClient> makeClient();

private:
    std::string bringUp(const std::string& name, IZelComponentManager& manager);

    platform::Module module_ = nullptr;
    IPtr<IZelComponent> component_;
};

} // namespace host
