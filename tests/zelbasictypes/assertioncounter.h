// SPDX-License-Identifier: Apache-2.0
// Counts failed assertions instead of ending the process, for as long as it lives.
#pragma once

#include "zelbasictypes/diagnostics/zelassert.h"

#include <string>
#include <vector>

class AssertionCounter {
public:
    AssertionCounter() { zelSetAssertHandler(&AssertionCounter::note, this); }
    AssertionCounter(const AssertionCounter&) = delete;
    AssertionCounter& operator=(const AssertionCounter&) = delete;
    ~AssertionCounter() { zelSetAssertHandler(nullptr, nullptr); }

    int count = 0;
    std::string last;
    std::vector<std::string> all;

private:
    static void note(void* context, const char* expression, const char*, std::int32_t) {
        auto* self = static_cast<AssertionCounter*>(context);
        ++self->count;
        self->all.push_back(self->last = expression);
    }
};
