// SPDX-License-Identifier: Apache-2.0
// The files that a server leaves under an output base name: the model file BASE.direct, and the
// exported files beside it.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <list>

class QFile;

namespace CADImport {
class Creator;
}

/// Opens the model file. False when there is none, or it can't be had.
bool openModelFile(const KorString& outputBaseName, QFile& file);

/// Gives each valid message of the model file to `creator`, one at a time.
void readMessages(QFile& file, CADImport::Creator& creator);

/// Closes the model file and deletes it.
void removeModelFile(const KorString& outputBaseName, QFile& file);

/// Appends the regular files in the directory of the base name whose name starts with the base
/// name's own, without extensions, and whose extension is "sat" for a decimal comma, "igs" else.
/// Case counts. The order is the platform's.
void collectExportedFiles(const KorString& outputBaseName, bool decimalComma,
                          std::list<KorString>& exportedFiles);
