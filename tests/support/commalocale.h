// SPDX-License-Identifier: Apache-2.0
// A user whose numbers have a decimal comma. POSIX only: elsewhere no variable says so.
#pragma once

#include "platform/environment.h"
#include "tests/support/scratch.h"

#include <cstdlib>
#include <locale.h>
#include <string>

/// There where a leak checker is linked in.
extern "C" [[gnu::weak]] void __lsan_disable();
extern "C" [[gnu::weak]] void __lsan_enable();

namespace testsupport {

/// The C library leaks the search path of locales that is set here, which leak checkers overlook
/// for as long.
class CommaLocale {
public:
    CommaLocale() {
        if (__lsan_disable) __lsan_disable();
        for (const char* installed : {"de_DE.utf8", "de_DE", "fr_FR.utf8", "es_ES.utf8"}) {
            if (name_.empty() && isInstalled(installed)) name_ = installed;
        }
        if (name_.empty()) make();
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        for (const char16_t* variable : {u"LC_ALL", u"LC_NUMERIC", u"LOCPATH"}) {
            platform::setEnvironment(variable, nullptr);
        }
        if (__lsan_enable) __lsan_enable();
    }

    /// False where the system has none and none can be made.
    bool isThere() const { return !name_.empty(); }
    const std::string& name() const { return name_; }
    void choose() const {
        platform::setEnvironment(u"LC_ALL", u"");
        platform::setEnvironment(u"LC_NUMERIC", std::u16string(name_.begin(), name_.end()).c_str());
    }

private:
    static bool isInstalled(const char* name) {
        const locale_t found = ::newlocale(LC_NUMERIC_MASK, name, nullptr);
        if (found) ::freelocale(found);
        return found;
    }
    void make() {
        const std::string command = "localedef --no-archive -i de_DE -f UTF-8 " +
                                    scratch_.narrow("de_DE.utf8") + " >/dev/null 2>&1";
        platform::setEnvironment(u"LOCPATH", scratch_.root.u16string().c_str());
        if (std::system(command.c_str()) == 0 && isInstalled("de_DE.utf8")) name_ = "de_DE.utf8";
    }

    Scratch scratch_;
    std::string name_;
};

} // namespace testsupport
