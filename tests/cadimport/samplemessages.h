// SPDX-License-Identifier: Apache-2.0
// Messages with random contents, the same for the same seed on every machine.
#pragma once

#include "cadimport/controlmessages.h"
#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

namespace sample {

using Random = std::mt19937;

/// One of each of the 26 classes.
std::vector<std::unique_ptr<CADImport::Message>> oneOfEach(Random& random, int length);

/// The record of a message.
QByteArray record(const CADImport::Message& message);

/// A model of about `size` bytes as a part with free-form faces has it: some 70 of 100 bytes are
/// control points of surfaces.
QByteArray mixedModel(qint64 size);
/// Edges, coedges, vertices, lines and planes only: records of some 100 bytes.
QByteArray smallRecords(qint64 size);

} // namespace sample
