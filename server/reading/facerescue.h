// SPDX-License-Identifier: Apache-2.0
// Fetches the faces of a STEP solid that the kernel gave up as a whole because of one of them.
#pragma once

#include "server/report.h"

#include <STEPControl_Reader.hxx>

namespace server {

/// After the transfer of the roots, before its losses are named: transfers the outer faces of
/// solids that have no result one by one. They are among the reader's shapes then, outside any
/// shell. Does nothing for an assembly, whose faces would lose their place.
void rescueFaces(STEPControl_Reader& reader, Report& report);

} // namespace server
