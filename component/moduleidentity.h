// SPDX-License-Identifier: Apache-2.0
// Who this module is. A program that is no component needs no identity: its name is then empty and
// its identifier nil.
#pragma once

#include "component/objects/moduleidentity.h"
#include "zelbasictypes/data/zelguid.h"

/// A component defines one static object of this class, in a source file that the linker cannot
/// leave out (of the module itself or of an object library). It must live until unloading.
class ZelModuleIdentity {
public:
    /// `shortName` is a static text.
    ZelModuleIdentity(const char* shortName, const ZelGuid& componentId);
    ZelModuleIdentity(const ZelModuleIdentity&) = delete;
    ZelModuleIdentity& operator=(const ZelModuleIdentity&) = delete;

    const char* const shortName;
    const ZelGuid componentId;
};

/// The module's short name, a static text.
const char* zelModuleName();
