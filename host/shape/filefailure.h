// SPDX-License-Identifier: Apache-2.0
// What is thrown when a result can't be written.
#pragma once

#include <stdexcept>

namespace host {

struct FileFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace host
