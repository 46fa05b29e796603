// SPDX-License-Identifier: Apache-2.0
// The one road by which descriptors and streams are opened.
#pragma once

#include "platform/file.h"

#include <string>

namespace platform {

/// `path` is of this system; the rest is as for `open`.
Descriptor openSystem(const std::string& path, std::int32_t flags, std::int32_t sharing,
                      std::int32_t permission);

} // namespace platform
