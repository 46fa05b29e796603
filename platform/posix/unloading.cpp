// SPDX-License-Identifier: Apache-2.0
// Telling an unloading from the end of the process by the order in which things go: at the end of
// the process the static objects of all modules are destroyed before any module's own finish, while
// an unloaded module is finished first.
#include "platform/unload.h"

namespace platform {
namespace {

constinit bool staticsAreGone = false;

struct Statics {
    ~Statics() { staticsAreGone = true; }
};
const Statics statics;

[[gnu::destructor]] void finish() {
    if (!staticsAreGone) AtUnload::callAll();
}

} // namespace

void AtUnload::watch() {}

} // namespace platform
