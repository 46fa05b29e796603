// SPDX-License-Identifier: Apache-2.0
// Names what a file holds and the transfer didn't bring.
//
// The kernel's readers answer "done" when they brought anything at all. What failed on the way
// stands in lists that somebody has to ask for. An entity that no shape is made of is a note.
#pragma once

#include "server/report.h"

#include <XSControl_Reader.hxx>

namespace server {

/// After the file is loaded: entities that were already wrong as they stood.
void reportLoadFailures(const XSControl_Reader& reader, Report& report);

/// Whether the transfer made anything of an entity.
bool hasResult(const XSControl_Reader& reader, const Handle(Standard_Transient) & entity);

/// After the transfer: entities that failed, and faces that left no result without a word.
void reportTransferFailures(const XSControl_Reader& reader, Report& report);

} // namespace server
