// SPDX-License-Identifier: Apache-2.0
// The error service: one line for each error.
#pragma once

#include "component/objects/services/izelerrorservice.h"

#include <iosfwd>

namespace host {

class ErrorService : public IZelErrorService {
public:
    /// `out` outlives the service.
    explicit ErrorService(std::ostream& out) : out_(out) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "ErrorService"; }
    void report(const KorString& text, const std::int32_t* kind, const KorCString& source) override;

private:
    std::ostream& out_;
};

} // namespace host
