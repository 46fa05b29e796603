// SPDX-License-Identifier: Apache-2.0
// The module's link to the host: the component manager, the module's scope, and the lookups that
// are built on them. Every module and program has its own copy of both settings.
//
// Both are written by the host's set-up calls, before other threads use the module, and read from
// any thread without a lock. No lookup takes a reference or clears `out`: set it to null first and
// test it afterwards. 1 means success; a failed lookup reports nothing.
#pragma once

#include "zelbasictypes/text/korcstring.h"

#include <cstdint>

class IZelComponentManager;
class ZelGuid;

/// Borrowed; null until the host has set it. It is never cleared, so that late releases still work.
IZelComponentManager* zelManager();
/// Called when the component is initialised; a host calls it for its own copy of the library.
void zelSetManager(IZelComponentManager* manager);

/// The scope whose manager is asked before the root manager; empty at the start.
const KorCString& zelScopeName();
void zelSetScopeName(const KorCString& name);

/// Asks the manager of the module's scope, when there is one, and then the root manager.
std::int32_t zelGetService(const KorCString& name, void** out);
std::int32_t zelCreateInstance(const ZelGuid& id, const KorCString& interfaceName, void** out);

/// Asks the manager of `scope` and no other.
std::int32_t zelGetServiceIn(const KorCString& name, const KorCString& scope, void** out);
std::int32_t zelCreateInstanceIn(const ZelGuid& id, const KorCString& interfaceName,
                                 const KorCString& scope, void** out);
