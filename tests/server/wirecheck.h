// SPDX-License-Identifier: Apache-2.0
// Checks a model that was written against the conventions of the exchange.
#pragma once

#include "tests/server/wiremodel.h"

#include <TopoDS_Shape.hxx>

namespace server::testing {

/// A line for each convention that the model breaks, 20 at most: messages, references, senses,
/// loops that close, curves on their surfaces.
std::string brokenConventions(const WireModel& model);

/// Beside the middle of each edge, just inside and just outside of each of its faces, looks into
/// the original: a line wherever material isn't where the model says. `original` is made of solids.
std::string misplacedMaterial(const WireModel& model, const TopoDS_Shape& original);

} // namespace server::testing
