// SPDX-License-Identifier: Apache-2.0
/// @file
/// The file "memory.log", which records the state of the memory at a final allocation failure.
#pragma once

#include <cstdint>

/// Replaces the log in the directory of the setting "Directories/Logs Directory". `attempted` is
/// the size of the failed request in bytes, or 0. Nothing is written when there is no settings
/// store or the file can't be opened. Figures that nobody can tell are 0.
void zelWriteMemoryLog(std::int64_t attempted);
