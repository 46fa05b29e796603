// SPDX-License-Identifier: Apache-2.0
// A search over the entries of one directory, "." and ".." among them, in the system's order.
#pragma once

#include <string>

namespace platform {

struct DirectorySearch;

/// Opens a search over all entries of `directory` and stores the name of the first in `name`. Null
/// when the directory can't be listed. The search belongs to the caller, who closes it.
DirectorySearch* findFirst(const char16_t* directory, std::u16string& name);
/// False behind the last entry.
bool findNext(DirectorySearch* search, std::u16string& name);
void findClose(DirectorySearch* search);

} // namespace platform
