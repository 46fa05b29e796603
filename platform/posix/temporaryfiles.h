// SPDX-License-Identifier: Apache-2.0
// The names of files that go when their descriptor is closed.
#pragma once

#include <string>

namespace platform {

void rememberTemporary(int file, const std::string& path);
/// Unlinks the name that was remembered for the descriptor, which is still open, unless the name
/// means another file by now. Nothing for other descriptors.
void unlinkTemporary(int file);

} // namespace platform
