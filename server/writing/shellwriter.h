// SPDX-License-Identifier: Apache-2.0
// Writes a planned shell as messages.
#pragma once

#include "server/writing/messagesink.h"
#include "server/writing/shellplan.h"

namespace server {

/// Surfaces, curves, edges, coedges, vertices, loops, faces, then the shell. The plan isn't empty.
void writeShell(const ShellPlan& plan, MessageSink& sink);

} // namespace server
