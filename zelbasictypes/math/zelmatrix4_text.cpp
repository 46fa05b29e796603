// SPDX-License-Identifier: Apache-2.0
// The text form of a matrix.
#include "zelbasictypes/math/zelmatrix4.h"

#include "platform/locale.h"

#include <cstdio>
#include <istream>
#include <ostream>

void ZelMatrix4::dump() const {
    const platform::PlainNumbers plain;
    for (int row = 0; row < 16; row += 4)
        std::printf("(%12.6f %12.6f %12.6f %12.6f\n", m[row], m[row + 1], m[row + 2], m[row + 3]);
    std::printf("\n");
}

void ZelMatrix4::dump(const char* title) const {
    std::printf("%s\n", title);
    dump();
}

std::ostream& operator<<(std::ostream& out, const ZelMatrix4& matrix) {
    for (const double value : matrix.m) out << value << ' ';
    return out;
}

std::istream& operator>>(std::istream& in, ZelMatrix4& matrix) {
    ZelMatrix4 read;
    for (double& value : read.m) in >> value;
    if (in) matrix = read;
    return in;
}
