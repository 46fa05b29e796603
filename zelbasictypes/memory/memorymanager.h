// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host's manager of memory chunks, kept once it has been found.
#pragma once

#include "component/objects/services/izelmmanager.h"

/// Borrowed; null while the host has no such service, and then looked for again at the next call.
/// One reference is kept until the module ends. Safe from any thread.
IZelMManager* zelMemoryManager();
