// SPDX-License-Identifier: Apache-2.0
// The end of a thread, as the language tells it; a module stays loaded until then.
#include "platform/sync.h"

namespace platform {
namespace {

struct Ending {
    ~Ending() { callback(value); }

    void (*callback)(void*) = nullptr;
    void* value = nullptr;
};

} // namespace

void atThreadEnd(void (*callback)(void*), void* value) {
    static thread_local Ending ending;
    ending.callback = callback;
    ending.value = value;
}

} // namespace platform
