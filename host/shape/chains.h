// SPDX-License-Identifier: Apache-2.0
// Finds the pieces of one original edge again. Their identifiers are (n << 8) | k with k counting
// from 0; that alone is no proof, since another sender may number edges as it likes.
#pragma once

#include "host/shape/geometry.h"

#include <map>
#include <vector>

namespace host {

/// A use of an edge of the record in a loop.
struct EdgeUse {
    Identifier edge = 0;
    bool along = true;
};
using EdgeRun = std::vector<EdgeUse>;

/// What is known of the edges of a model before any are joined.
struct LooseEdges {
    const ModelRecord* model = nullptr;
    std::map<Identifier, BoundedCurve> curves; ///< of the sound edges
    std::vector<const EdgeRun*> loops;         ///< of all faces
};

/// Chains of two or more pieces that have the same faces on both sides, follow each other in every
/// loop, and go on in the same direction. In the order of the pieces.
std::vector<std::vector<Identifier>> chainsOf(const LooseEdges& edges);

} // namespace host
