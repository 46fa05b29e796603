// SPDX-License-Identifier: Apache-2.0
// All services of the reference host, made and offered together.
#pragma once

#include "component/objects/iptr.h"
#include "host/services/busystate.h"
#include "host/services/directoryservice.h"
#include "host/services/settingsstore.h"
#include "host/services/simpledialog.h"

namespace host {

class ComponentManager;

struct ServiceOptions {
    std::ostream& messages;       ///< where notices, errors and questions go; outlives the services
    LineReader terminal;          ///< where questions are answered, when there is somebody
    std::optional<bool> answer;   ///< answers every question
    IPtr<SettingsStore> settings; ///< null for an empty one
};

/// The services that the host itself goes on using.
struct Services {
    IPtr<SettingsStore> settings;
    IPtr<SimpleDialog> dialog;
    IPtr<BusyState> busyState;
    IPtr<DirectoryService> directories;
};

/// Offers each service under the name of its interface. Four settings are read here:
/// "Host/Translations", the file of the translator service; "Host/Macro Running", whether the macro
/// manager says that a macro runs; "Host/Chunk Limit", the chunk manager's limit in units of 24 kB;
/// "Host/Memory Checker", whether the memory checker is active.
Services offerServices(ComponentManager& manager, const ServiceOptions& options);

} // namespace host
