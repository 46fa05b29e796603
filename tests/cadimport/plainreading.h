// SPDX-License-Identifier: Apache-2.0
// Reads records the slow and obvious way, one value after the other through QDataStream. It shares
// no code with the decoder: tests and the fuzz harness compare with it, the benchmark races it.
#pragma once

#include "cadimport/message.h"

#include <memory>

namespace plain {

/// One step of the loop over a file: a wire name, and the message that it stands for with its body;
/// null when it stands for none.
std::unique_ptr<CADImport::Message> readRecord(QDataStream& stream);

} // namespace plain
