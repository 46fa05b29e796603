// SPDX-License-Identifier: Apache-2.0
// The component identifier as the lower floors ask for it; component/moduleidentity.h sets it.
#pragma once

class ZelGuid;

/// The module's own identifier, never null; nil in a program that is no component. The address is
/// the same for as long as the module is loaded.
const ZelGuid* zelComponentId();
