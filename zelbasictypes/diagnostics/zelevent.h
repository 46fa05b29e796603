// SPDX-License-Identifier: Apache-2.0
/// @file
/// A manual-reset event.
#pragma once

#include "platform/sync.h"

#include <memory>

/// Holds an event of the system that isn't signalled. It has no operations of its own.
class ZelEvent {
public:
    ZelEvent() : handle(platform::makeEvent(true, false)) {}

private:
    std::unique_ptr<platform::Waitable> handle;
};
