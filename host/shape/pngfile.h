// SPDX-License-Identifier: Apache-2.0
// An image as a PNG file.
#pragma once

#include "host/shape/raster.h"

#include <string>

namespace host {

/// Throws a FileFailure.
void writePng(const Image& image, const std::string& path);

} // namespace host
