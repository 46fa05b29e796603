// SPDX-License-Identifier: Apache-2.0
// The system's record of a file as the layer's own.
#pragma once

#include "platform/file.h"

#include <sys/stat.h>

namespace platform {

static_assert(S_IFREG == file_mode::regular && S_IFDIR == file_mode::directory);

inline FileStatus statusOf(const struct ::stat& record) {
    return {record.st_mode, record.st_size, record.st_mtime, record.st_atime, record.st_ctime};
}

} // namespace platform
