// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host's manager of memory chunks.
#pragma once

#include "component/objects/services/izelmmanager.h"

/// The manager, borrowed. Null while the host has none; it is then looked up again by the next
/// call. One reference is kept until the module ends. Any thread may call.
IZelMManager* zelMemoryManager();
