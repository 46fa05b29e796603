// SPDX-License-Identifier: Apache-2.0
/// @file
/// Plain values that are passed to the host's modelling component.
#pragma once

#include "zelbasictypes/math/zelvector3.h"

/// A parameter range, as in the message; the first bound may be the larger one.
struct ZelRange {
    /// A bound.
    /// @{
    double first = 0.0;
    double last = 0.0;
    /// @}
};

/// A bounding box in metres. It is empty when its minimum x exceeds its maximum x.
struct ZelBox3 {
    /// A corner.
    /// @{
    ZelVector3 min;
    ZelVector3 max;
    /// @}
};
