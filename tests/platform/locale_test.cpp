// SPDX-License-Identifier: Apache-2.0
// The user's decimal separator.
#include "platform/locale.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace platform::test {
namespace {

TEST(DecimalSeparator, DoesNotFollowTheProcess) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "C");
    const std::u16string separator = decimalSeparator();
    std::setlocale(LC_NUMERIC, "");
    EXPECT_EQ(decimalSeparator(), separator);
    std::setlocale(LC_NUMERIC, before.c_str());
    EXPECT_LT(separator.size(), 50u);
}

} // namespace
} // namespace platform::test
