// SPDX-License-Identifier: Apache-2.0
// The list of self-tests and the one run at a time.
#include "component/selftests.h"

#include "component/objects/services/izelerrorservice.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/zeltranslator.h"

#include <vector>

namespace {

constinit bool running = false;

/// Marks the run in progress until its end, however it ends.
class RunMark {
public:
    RunMark() { running = true; }
    ~RunMark() { running = false; }
    RunMark(const RunMark&) = delete;
    RunMark& operator=(const RunMark&) = delete;
};

std::vector<ZelSelfTest>& selfTests() {
    static std::vector<ZelSelfTest> tests = [] {
        std::vector<ZelSelfTest> list;
        list.reserve(21);
        return list;
    }();
    return tests;
}

void reportMissingService() {
    const SPtr<IZelErrorService> errors;
    const std::int32_t kind = 1;
    if (errors) {
        errors->report(zelTranslate("Unable to get test service"), &kind,
                       KorCString::sharedEmpty());
    }
}

} // namespace

void zelAddSelfTest(const ZelSelfTest& test) { selfTests().push_back(test); }

void zelRunSelfTests(IZelSelfTestService* service) {
    if (running) return;
    const RunMark mark;
    if (!service) return reportMissingService();
    for (const ZelSelfTest& test : selfTests()) service->take(test);
}
