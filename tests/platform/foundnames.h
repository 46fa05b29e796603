// SPDX-License-Identifier: Apache-2.0
// Names of files, written down and found.
#pragma once

#include "platform/directory.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>

namespace platform::test {

using NameSet = std::set<std::u16string>;

/// What a search of the directory finds, the two dots as well; nothing where there is no search.
inline NameSet foundNames(const std::u16string& directory) {
    NameSet result;
    std::u16string name;
    DirectorySearch* search = findFirst(directory.c_str(), name);
    if (!search) return result;
    do {
        EXPECT_TRUE(result.insert(name).second) << "found twice";
    } while (findNext(search, name));
    findClose(search);
    return result;
}

/// A text of units that need not be Unicode.
inline std::u16string units(std::initializer_list<unsigned> values) {
    return {values.begin(), values.end()};
}

} // namespace platform::test
