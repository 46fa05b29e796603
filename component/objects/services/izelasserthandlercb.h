// SPDX-License-Identifier: Apache-2.0
// What the host does with a failed assertion.
#pragma once

#include "component/objects/izelunknown.h"

class IZelAssertHandlerCB : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelAssertHandlerCB";

    /// May end the process; when it returns, the caller goes on with its fall-back. Called on the
    /// thread that failed. The texts are static.
    virtual void onAssert(const char* expression, const char* file, std::int32_t line) = 0;
};
