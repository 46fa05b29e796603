// SPDX-License-Identifier: Apache-2.0
// The stored form of a matrix.
#include "zelbasictypes/math/zelmatrix4.h"

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binoutput.h"

bool ZelMatrix4::write(BinOutput& out) const {
    for (int row = 0; row < 16; row += 4)
        if (!out.write(m + row, 4)) return false;
    return true;
}

bool ZelMatrix4::read(BinInput& in) {
    for (int row = 0; row < 16; row += 4)
        if (!in.read(m + row, 4)) return false;
    return true;
}
