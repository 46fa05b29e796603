// SPDX-License-Identifier: Apache-2.0
// The route of a failed assertion, and the break flag.
#include "zelbasictypes/diagnostics/zelassert.h"

#include "component/objects/services/izelasserthandlercb.h"
#include "component/objects/sptr.h"
#include "platform/environment.h"
#include "zelbasictypes/memory/heapseam.h"

#include <cstdlib>

namespace {

constexpr int noHandlerStatus = 255;

constinit ZelAssertHandler assertHandler = nullptr;
constinit void* assertContext = nullptr;

bool enabledByEnvironment() { return platform::getenv("ZEL_BREAK_ENABLED") != "0"; }

bool breakEnabled = enabledByEnvironment();

} // namespace

void zelAssertFail(const char* expression, const char* file, std::int32_t line) {
    if (assertHandler) {
        assertHandler(assertContext, expression, file, line);
        return;
    }
    const SPtr<IZelAssertHandlerCB> service;
    if (!service) {
        zelHeap().exitProcess(noHandlerStatus);
        std::abort();
    }
    service->onAssert(expression, file, line);
}

void zelSetAssertHandler(ZelAssertHandler handler, void* context) {
    assertHandler = handler;
    assertContext = context;
}

bool zelBreakEnabled() { return breakEnabled; }

void zelSetBreakEnabled(bool enabled) { breakEnabled = enabled; }
