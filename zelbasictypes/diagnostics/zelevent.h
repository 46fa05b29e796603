// SPDX-License-Identifier: Apache-2.0
// A manual-reset event, held for as long as the object lives.
#pragma once

#include "platform/sync.h"

#include <memory>

/// Not signalled at first. It has no operation of its own.
class ZelEvent {
public:
    ZelEvent() : handle(platform::makeEvent(true, false)) {}

private:
    std::unique_ptr<platform::Waitable> handle;
};
