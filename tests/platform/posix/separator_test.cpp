// SPDX-License-Identifier: Apache-2.0
// The decimal separator under locales that the test chooses.
#include "platform/locale.h"

#include "platform/environment.h"
#include "tests/support/commalocale.h"

#include <gtest/gtest.h>

#include <clocale>

namespace platform::test {
namespace {

TEST(Separator, IsAPointWithoutALocaleAndNotKnownOfAnUnknownOne) {
    const testsupport::CommaLocale takesBackWhatIsChosen;
    setEnvironment(u"LC_ALL", u"C");
    EXPECT_EQ(decimalSeparator(), u".");
    setEnvironment(u"LC_ALL", u"xx_XX.nowhere");
    EXPECT_EQ(decimalSeparator(), u"");
}

TEST(Separator, IsTheUsersCommaWhileTheProcessWritesPoints) {
    const testsupport::CommaLocale comma;
    if (!comma.isThere()) GTEST_SKIP() << "no locale with a comma is installed or can be made";
    comma.choose();
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(decimalSeparator(), u",");
    setEnvironment(u"LC_ALL", u"C");
    ASSERT_NE(std::setlocale(LC_NUMERIC, comma.name().c_str()), nullptr);
    const std::u16string separator = decimalSeparator();
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(separator, u".") << "LC_ALL outranks LC_NUMERIC, and the process counts for nothing";
}

} // namespace
} // namespace platform::test
