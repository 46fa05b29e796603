// SPDX-License-Identifier: Apache-2.0
// Who the import module is, as IZelCompInternal tells a host.
#pragma once

#include "zelbasictypes/data/zelguid.h"

inline constexpr const char* zelImportModuleName = "brix";
inline constexpr ZelGuid zelImportComponentId{
    0x7D9A23CB, 0x428C, 0x49C5, {0xA5, 0x7D, 0xD9, 0x58, 0x63, 0x40, 0x8C, 0x16}};
