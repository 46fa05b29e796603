// SPDX-License-Identifier: Apache-2.0
// A directory that goes with the test and names its files in the library's strings.
#pragma once

#include "tests/support/scratch.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <string>

class TemporaryDirectory : public Scratch {
public:
    /// In the library's normal form; `name` may have slashes.
    KorString path(const std::string& name = "") const {
        std::u16string text = backslashed(at(name).u16string());
        while (text.back() == u'\\') text.pop_back();
        return KorString(text.c_str());
    }
};

/// A test with such a directory, where most of what it does is done to one file.
class DirectoryTest : public testing::Test {
protected:
    KorString path(const std::string& name = "file") const { return directory.path(name); }
    std::string narrow(const std::string& name = "file") const { return directory.narrow(name); }
    std::string contents(const std::string& name = "file") const { return directory.read(name); }

    TemporaryDirectory directory;
};
