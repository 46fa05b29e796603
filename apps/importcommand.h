// SPDX-License-Identifier: Apache-2.0
// The command line of brix-import.
#pragma once

#include "host/run/importoptions.h"

#include <string>
#include <vector>

namespace apps {

struct ImportCommand {
    host::ImportOptions options;
    bool json = false;
    QString jsonFile; ///< empty: standard output
};

struct ParsedCommand {
    std::optional<ImportCommand> command; ///< none when the program ends here
    int exitStatus = 0;
};

/// Takes the words of the command line, the program's name first, in UTF-8; of MODEL alone the
/// bytes may be any. Help and version go to standard output with status 0, what is wrong goes to
/// standard error with status 2.
ParsedCommand parseImportCommand(const std::vector<std::string>& words);

} // namespace apps
