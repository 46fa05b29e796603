// SPDX-License-Identifier: Apache-2.0
// The decimal separator under locales that the test chooses.
#include "platform/locale.h"

#include "platform/environment.h"
#include "tests/support/scratch.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <locale.h>
#include <string>

/// The C library leaks the search path of locales that the test sets; leak checkers call this.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:argz_add_sep"; }

namespace platform::test {
namespace {

bool isInstalled(const char* name) {
    const locale_t found = ::newlocale(LC_NUMERIC_MASK, name, nullptr);
    if (found) ::freelocale(found);
    return found;
}

class Separator : public testing::Test {
protected:
    ~Separator() override {
        for (const char16_t* name : {u"LC_ALL", u"LC_NUMERIC", u"LOCPATH"}) {
            setEnvironment(name, nullptr);
        }
    }

    /// The name of a locale with a comma, made for the test when the system has none; empty when
    /// that can't be done either.
    std::string commaLocale() {
        for (const char* name : {"de_DE.utf8", "de_DE", "fr_FR.utf8", "es_ES.utf8"}) {
            if (isInstalled(name)) return name;
        }
        const std::string command = "localedef --no-archive -i de_DE -f UTF-8 " +
                                    scratch.narrow("de_DE.utf8") + " >/dev/null 2>&1";
        setEnvironment(u"LOCPATH", scratch.root.u16string().c_str());
        const bool made = std::system(command.c_str()) == 0;
        return made && isInstalled("de_DE.utf8") ? "de_DE.utf8" : "";
    }
    static void choose(const char16_t* variable, const std::string& name) {
        setEnvironment(variable, std::u16string(name.begin(), name.end()).c_str());
    }

    Scratch scratch;
};

TEST_F(Separator, IsAPointWithoutALocale) {
    choose(u"LC_ALL", "C");
    EXPECT_EQ(decimalSeparator(), u".");
}

TEST_F(Separator, IsNotKnownOfAnUnknownLocale) {
    choose(u"LC_ALL", "xx_XX.nowhere");
    EXPECT_EQ(decimalSeparator(), u"");
}

TEST_F(Separator, IsTheUsersCommaWhileTheProcessWritesPoints) {
    const std::string comma = commaLocale();
    if (comma.empty()) GTEST_SKIP() << "no locale with a comma is installed or can be made";
    choose(u"LC_ALL", "");
    choose(u"LC_NUMERIC", comma);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(decimalSeparator(), u",");
    choose(u"LC_ALL", "C");
    ASSERT_NE(std::setlocale(LC_NUMERIC, comma.c_str()), nullptr);
    const std::u16string separator = decimalSeparator();
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(separator, u".") << "LC_ALL outranks LC_NUMERIC, and the process counts for nothing";
}

} // namespace
} // namespace platform::test
