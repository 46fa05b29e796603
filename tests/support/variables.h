// SPDX-License-Identifier: Apache-2.0
// Variables of the process, as it and its children see them, by plain texts.
#pragma once

#include "platform/environment.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace testsupport {

inline std::u16string widened(std::string_view text) { return {text.begin(), text.end()}; }

inline bool setVariable(std::string_view name, std::string_view value) {
    return platform::setEnvironment(widened(name).c_str(), widened(value).c_str());
}
inline void clearVariable(std::string_view name) {
    platform::setEnvironment(widened(name).c_str(), nullptr);
}

/// What a test makes up, a name, a folder, and what its death test finds when the system starts the
/// test anew for that instead of copying the process.
inline std::string sharedWithDeathTests(const char* name, const std::string& madeUp) {
    if (testing::internal::InDeathTestChild()) {
        if (const auto given = platform::getenv(name)) return *given;
    }
    setVariable(name, madeUp);
    return madeUp;
}

} // namespace testsupport
