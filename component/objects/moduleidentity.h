// SPDX-License-Identifier: Apache-2.0
/// @file
/// The component identifier for the lower layers; component/moduleidentity.h defines it.
#pragma once

class ZelGuid;

/// The identifier of this module. Never null; the identifier is nil in a program that is no
/// component. The address doesn't change while the module is loaded.
const ZelGuid* zelComponentId();
