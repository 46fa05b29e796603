// SPDX-License-Identifier: Apache-2.0
// The list of callbacks, of objects that are never destroyed.
#include "platform/unload.h"

#include <type_traits>
#include <utility>

namespace platform {
namespace {

constinit AtUnload* last = nullptr;

} // namespace

static_assert(std::is_trivially_destructible_v<AtUnload>);

AtUnload::AtUnload(void (*callback)()) : callback_(callback), next_(std::exchange(last, this)) {
    watch();
}

void AtUnload::callAll() {
    while (last) std::exchange(last, last->next_)->callback_();
}

} // namespace platform
