// SPDX-License-Identifier: Apache-2.0
// The files that a server leaves under an output base name: the model file BASE.direct, and the
// exported files beside it.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <list>

namespace CADImport {
class Creator;
}

/// Gives each valid message of the model file to `creator`, one at a time, and deletes the file.
/// False, with the file left where it is, when it cannot be opened, or when the host has no
/// importer that could take a message.
bool readMessages(const KorString& outputBaseName, CADImport::Creator& creator);

/// Appends the regular files in the directory of the base name whose name starts with the base
/// name's own, without extensions, and whose extension is "sat" for a decimal comma, "igs" else.
/// Case counts. The order is the platform's.
void collectExportedFiles(const KorString& outputBaseName, bool decimalComma,
                          std::list<KorString>& exportedFiles);
