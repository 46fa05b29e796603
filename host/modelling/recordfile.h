// SPDX-License-Identifier: Apache-2.0
// A record as bytes, for the way to the worker that rebuilds solids. Both ends are built together,
// so that there is one version only.
#pragma once

#include "host/modelling/record.h"

#include <QIODevice>

#include <optional>

namespace host {

/// False when not everything could be written.
bool writeRecord(QIODevice& device, const ImportRecord& record);

/// Nothing when the bytes are no record or end early. What is allocated is bounded by the bytes
/// that are there. The device must be able to tell how many that is.
std::optional<ImportRecord> readRecord(QIODevice& device);

} // namespace host
