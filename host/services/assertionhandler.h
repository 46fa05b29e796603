// SPDX-License-Identifier: Apache-2.0
// What becomes of a failed assertion: it is told, and the work goes on with its fall-back.
#pragma once

#include "component/objects/services/izelasserthandlercb.h"

#include <iosfwd>
#include <mutex>

namespace host {

class AssertionHandler : public IZelAssertHandlerCB {
public:
    /// `out` outlives the handler.
    explicit AssertionHandler(std::ostream& out) : out_(out) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "AssertionHandler"; }
    void onAssert(const char* expression, const char* file, std::int32_t line) override;

private:
    std::ostream& out_;
    std::mutex mutex_;
};

} // namespace host
