// SPDX-License-Identifier: Apache-2.0
// Writes all bodies as one model.
#pragma once

#include "server/progress.h"
#include "server/reading/bodies.h"

#include <QDataStream>

namespace server {

/// The stream's version is set to that of the protocol. The unit is the report's. What is read,
/// written, converted and dropped goes into the report.
void writeModel(const std::vector<Body>& bodies, QDataStream& stream, Progress& progress,
                Report& report);

} // namespace server
