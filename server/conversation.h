// SPDX-License-Identifier: Apache-2.0
// A run that a client steers over a control connection.
//
//     client                              server
//       OK              ───────────────▶
//                       ◀───────────────  OK
//       SetParameters   ───────────────▶    any number: further words of the command line
//       SendNextModel   ───────────────▶    the import
//                       ◀───────────────  SetParameters "-ResultFile" BASE.direct, and BASE.igs
//                       ◀───────────────  Finish; Escape instead of both when the import failed
//       Finish          ───────────────▶
#pragma once

#include "server/failure.h"
#include "server/options.h"

#include <ostream>

namespace server {

/// Waits for a client and does what it asks. Without a client the import runs all the same, as a
/// client that has no control connection passes the option too. A client that leaves before it has
/// asked for a model gets none. Throws nothing; the code is that of the import.
ExitCode converse(Options options, std::ostream& messages);

} // namespace server
