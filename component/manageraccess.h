// SPDX-License-Identifier: Apache-2.0
/// @file
/// The module's link to the host: its component manager, its scope, and the lookups built on them.
/// Every module and program has its own copy of both settings.
///
/// The host's set-up calls write the settings before other threads use the module; after that any
/// thread reads them without a lock. Lookups take no reference and don't clear `out`: set it to
/// null first and test it afterwards. They return 1 on success. A failed lookup is silent.
#pragma once

#include "zelbasictypes/text/korcstring.h"

#include <cstdint>

class IZelComponentManager;
class ZelGuid;

/// The host's manager, borrowed; null until the host has set it. It is never cleared, so that late
/// releases still work.
IZelComponentManager* zelManager();
/// Sets the manager. Initialising the component does this; a host calls it for its own copy of the
/// library.
void zelSetManager(IZelComponentManager* manager);

/// The scope whose manager is asked before the root manager; empty at the start.
/// @{
const KorCString& zelScopeName();
void zelSetScopeName(const KorCString& name);
/// @}

/// Asks the manager of the module's scope, if it has one, and then the root manager.
/// @{
std::int32_t zelGetService(const KorCString& name, void** out);
std::int32_t zelCreateInstance(const ZelGuid& id, const KorCString& interfaceName, void** out);
/// @}

/// Asks only the manager of `scope`.
/// @{
std::int32_t zelGetServiceIn(const KorCString& name, const KorCString& scope, void** out);
std::int32_t zelCreateInstanceIn(const ZelGuid& id, const KorCString& interfaceName,
                                 const KorCString& scope, void** out);
/// @}
