// SPDX-License-Identifier: Apache-2.0
/// @file
/// Lists the entries of one directory, including "." and "..", in the system's order. A search
/// belongs to one thread at a time.
#pragma once

#include "platform/file.h"

#include <string>

namespace platform {

/// An open search; its content is the system's.
struct DirectorySearch;

/// Opens a search over all entries of `directory` and stores the first name in `name`, in the wide
/// form that file.h describes. An empty text is the root directory, and a bare "X:" that drive's
/// root. Returns null when the directory can't be listed; lastError() then says why. The caller
/// owns the search and ends it with findClose().
DirectorySearch* findFirst(const char16_t* directory, std::u16string& name);
/// Stores the next name. After the last entry it answers false and leaves `name` alone.
bool findNext(DirectorySearch* search, std::u16string& name);
/// As stat() of the entry found last, but without resolving its path again where the system allows
/// that.
std::int32_t statFound(DirectorySearch* search, FileStatus* status);
/// Ends a search and frees it; null is allowed.
void findClose(DirectorySearch* search);

} // namespace platform
