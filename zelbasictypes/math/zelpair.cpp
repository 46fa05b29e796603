// SPDX-License-Identifier: Apache-2.0
// Reading pairs.
#include "zelbasictypes/math/zelpair.h"

#include "zelbasictypes/data/bininput.h"

bool ZelFloatPair::read(BinInput& in) { return in.read(values, 2); }

bool ZelDoublePair::read(BinInput& in) { return in.read(values, 2); }
