// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that decides what happens at a failed assertion.
#pragma once

#include "component/objects/izelunknown.h"

/// Receives failed assertions.
class IZelAssertHandlerCB : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelAssertHandlerCB";

    /// Called on the thread of the failed assertion, with static texts. It may end the process.
    /// When it returns, the failed call goes on with its documented fallback.
    virtual void onAssert(const char* expression, const char* file, std::int32_t line) = 0;
};
