// SPDX-License-Identifier: Apache-2.0
/// @file
/// The name and identifier of this module. A program that is no component needs neither: its name
/// is empty and its identifier nil.
#pragma once

#include "component/objects/moduleidentity.h"
#include "zelbasictypes/data/zelguid.h"

/// A component defines one static object of this class, in a source file that the linker can't
/// leave out: one of the module itself or of an object library. It must live until the module is
/// unloaded.
class ZelModuleIdentity {
public:
    /// Makes this the module's identity. `shortName` must be a static text.
    ZelModuleIdentity(const char* shortName, const ZelGuid& componentId);
    ZelModuleIdentity(const ZelModuleIdentity&) = delete;
    ZelModuleIdentity& operator=(const ZelModuleIdentity&) = delete;

    const char* const shortName; ///< a static text
    const ZelGuid componentId;   ///< by which the host knows the component
};

/// The module's short name; a static text.
const char* zelModuleName();
