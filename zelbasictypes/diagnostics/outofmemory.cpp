// SPDX-License-Identifier: Apache-2.0
// The last message before the process ends.
#include "zelbasictypes/diagnostics/outofmemory.h"

#include "component/objects/services/idatastore.h"
#include "component/objects/services/igfxrenderer.h"
#include "component/objects/services/izelerrorservice.h"
#include "component/objects/sptr.h"
#include "platform/message.h"
#include "zelbasictypes/diagnostics/memorylog.h"
#include "zelbasictypes/memory/heapseam.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/zeltranslator.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

constexpr int outOfMemoryStatus = -1;
constexpr std::int32_t lowestReported = -5;

constexpr const char16_t* title = u"Out of Memory";
constexpr const char* lastWords = "While running this function, you have run out of memory.\n"
                                  "The application will close. After restarting, please read\n"
                                  "the online help about \"Memory Optimization\".";

/// How far this thread is on its way out. A step that fails itself comes by here again.
enum class Step { none, log, message, end };
constinit thread_local Step step = Step::none;

class Stepping {
public:
    explicit Stepping(Step next) : before_(std::exchange(step, next)) {}
    Stepping(const Stepping&) = delete;
    Stepping& operator=(const Stepping&) = delete;
    ~Stepping() { step = before_; }

private:
    Step before_;
};

IGfxRenderer* renderer() {
    static const IPtr<IGfxRenderer> found = SPtr<IGfxRenderer>();
    return found.iface;
}

class RendererRest {
public:
    RendererRest() : renderer_(renderer()) {
        if (renderer_) renderer_->suspend();
    }
    RendererRest(const RendererRest&) = delete;
    RendererRest& operator=(const RendererRest&) = delete;
    ~RendererRest() {
        if (renderer_) renderer_->resume();
    }

private:
    IGfxRenderer* renderer_;
};

/// False when there is no memory for it.
bool tell(std::int32_t code) {
    const Stepping on(Step::message);
    try {
        zelOutOfMemory(code);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool usesErrorService() {
    const SPtr<IDataStore> store;
    return store && store->getBool("Memory/UseErrorService", 0) != 0;
}

} // namespace

bool zelOutOfMemory(std::int32_t code) {
    const bool byService = usesErrorService();
    const IPtr<IZelErrorService> service =
        byService ? SPtr<IZelErrorService>() : IPtr<IZelErrorService>();
    if ((byService && !service) || code < lowestReported || code > -1) return false;
    const KorString text = zelTranslate(lastWords);
    const RendererRest rest;
    if (service) {
        const std::int32_t kind = 1;
        service->report(text, &kind, KorCString::borrow("realloc"));
    } else {
        platform::showMessage(title, text.c_str());
    }
    return false;
}

void zelOutOfMemoryExit(std::int32_t code) {
    if (step == Step::end) std::_Exit(outOfMemoryStatus);
    if (step == Step::message || !tell(code)) {
        platform::showMessage(title, u"You have run out of memory. The application will close.");
    }
    const Stepping on(Step::end);
    zelHeap().exitProcess(outOfMemoryStatus);
    std::abort();
}

void zelReportOutOfMemory(std::int64_t bytes, std::int32_t code) {
    if (step == Step::none) {
        const Stepping on(Step::log);
        zelWriteMemoryLog(bytes);
    }
    zelOutOfMemoryExit(code);
}
