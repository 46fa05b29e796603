// SPDX-License-Identifier: Apache-2.0
// Telling failed assertions.
#include "host/services/assertionhandler.h"

#include "component/objects/queryinterface.h"

#include <ostream>

namespace host {

void AssertionHandler::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelAssertHandlerCB>(this, className(), name, result);
}

void AssertionHandler::onAssert(const char* expression, const char* file, std::int32_t line) {
    const std::lock_guard lock(mutex_);
    out_ << "assertion failed: " << expression << " (" << file << ':' << line << ')' << std::endl;
}

} // namespace host
