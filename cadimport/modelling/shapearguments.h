// SPDX-License-Identifier: Apache-2.0
/// @file
/// The plain values that cross to the host's modelling component.
#pragma once

#include "zelbasictypes/math/zelvector3.h"

/// Two bounds of a parameter, in the order of the message; the first may be the larger.
struct ZelRange {
    double first = 0.0;
    double last = 0.0;
};

/// An axis-parallel box in metres. A box whose minimum x exceeds its maximum x is empty.
struct ZelBox3 {
    ZelVector3 min;
    ZelVector3 max;
};
