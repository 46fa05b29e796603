// SPDX-License-Identifier: Apache-2.0
// An identifier whose bytes can be told apart.
#pragma once

#include "zelbasictypes/data/zelguid.h"

inline const ZelGuid sampleGuid{
    0x01AB2345, 0x6789, 0x00CD, {0xEF, 0x01, 0x00, 0x45, 0x67, 0x89, 0xAB, 0xCD}};
