// SPDX-License-Identifier: Apache-2.0
// The list of callbacks, of objects that are never destroyed.
#include "platform/unload.h"

#include <type_traits>
#include <utility>

namespace platform {
namespace {

constinit AtUnload* newest = nullptr;

} // namespace

static_assert(std::is_trivially_destructible_v<AtUnload>);

AtUnload::AtUnload(void (*callback)()) : callback_(callback), next_(std::exchange(newest, this)) {
    watch();
}

void AtUnload::callAll() {
    while (newest) std::exchange(newest, newest->next_)->callback_();
}

} // namespace platform
