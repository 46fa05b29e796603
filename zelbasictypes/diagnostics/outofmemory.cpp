// SPDX-License-Identifier: Apache-2.0
// The last message before the process ends.
#include "zelbasictypes/diagnostics/outofmemory.h"

#include "platform/message.h"
#include "zelbasictypes/memory/heapseam.h"

#include <cstdlib>

namespace {

constexpr int outOfMemoryStatus = -1;
constexpr std::int32_t lowestReported = -5;

} // namespace

bool zelOutOfMemory(std::int32_t code) {
    if (code < lowestReported || code > -1) return false;
    platform::showMessage(u"Out of Memory",
                          u"While running this function, you have run out of memory.\n"
                          u"The application will close. After restarting, please read\n"
                          u"the online help about \"Memory Optimization\".");
    return false;
}

void zelOutOfMemoryExit(std::int32_t code) {
    if (!zelOutOfMemory(code)) zelHeap().exitProcess(outOfMemoryStatus);
    std::abort();
}

void zelReportOutOfMemory(std::int64_t) { zelOutOfMemoryExit(zelNoMemory); }
