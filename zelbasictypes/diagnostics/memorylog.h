// SPDX-License-Identifier: Apache-2.0
// The file "memory.log", which tells how things stood when an allocation failed for good.
#pragma once

#include <cstdint>

/// Replaces the log in the directory of the setting "Directories/Logs Directory". `attempted` is
/// the request that failed, in bytes, or 0. Where there is no settings store there is no log, nor
/// where the file can't be opened. What nobody tells about the machine's memory stands as 0.
void zelWriteMemoryLog(std::int64_t attempted);
