// SPDX-License-Identifier: Apache-2.0
// A search over the entries of one directory, "." and ".." among them, in the system's order.
#pragma once

#include "platform/file.h"

#include <string>

namespace platform {

struct DirectorySearch;

/// Opens a search over all entries of `directory` and stores the name of the first in `name`, in
/// the wide form that file.h describes. An empty directory text is the root, as a drive's "X:" is
/// that drive's. Null when the directory can't be listed, and lastError() says why. The search
/// belongs to the caller, who closes it.
DirectorySearch* findFirst(const char16_t* directory, std::u16string& name);
/// False behind the last entry, with `name` left alone.
bool findNext(DirectorySearch* search, std::u16string& name);
/// As stat of the entry found last, but without the way to it being walked again where the system
/// offers that.
std::int32_t statFound(DirectorySearch* search, FileStatus* status);
/// Null is allowed.
void findClose(DirectorySearch* search);

} // namespace platform
