// SPDX-License-Identifier: Apache-2.0
// A directory that goes with the test and names its files in the library's strings.
#pragma once

#include "tests/support/scratch.h"
#include "zelbasictypes/text/korstring.h"

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
