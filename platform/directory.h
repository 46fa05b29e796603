// SPDX-License-Identifier: Apache-2.0
// A search over the entries of one directory.
#pragma once

#include <string>

namespace platform {

struct DirectorySearch;

/// Finds the entries in the system's order, "." and ".." among them, except that the root of a
/// drive may lack the two. Null when there is no such directory or nothing in it; `lastError` of
/// file.h tells which. `name` gets the first entry's name, without its directory, in the wide form
/// that file.h describes. The caller closes the search.
DirectorySearch* findFirst(const char16_t* directory, std::u16string& name);
/// False behind the last entry; `name` then stays as it was.
bool findNext(DirectorySearch* search, std::u16string& name);
/// Null is allowed.
void findClose(DirectorySearch* search);

} // namespace platform
