// SPDX-License-Identifier: Apache-2.0
// The text of a matrix: sixteen numbers as a plain stream reads them, or the matrix stays.
#include "fuzz/input.h"
#include "zelbasictypes/math/zelmatrix4.h"

#include <algorithm>
#include <limits>
#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = Input(data, size).rest();
    std::istringstream in(text), plain(text);
    ZelMatrix4 matrix = ZelMatrix4::uniformScale(3), again;
    double numbers[16];
    std::copy_n(matrix.m, 16, numbers);
    const bool isRead = static_cast<bool>(in >> matrix);
    double read[16];
    for (double& number : read) plain >> number;
    if (plain) std::copy_n(read, 16, numbers);
    require(isRead == static_cast<bool>(plain), "a text is taken otherwise");
    require(std::equal(numbers, numbers + 16, matrix.m), "other numbers");
    std::stringstream written;
    written.precision(std::numeric_limits<double>::max_digits10);
    written << matrix;
    require(written >> again && std::equal(numbers, numbers + 16, again.m), "comes back otherwise");
    return 0;
}
