// SPDX-License-Identifier: Apache-2.0
// Printing errors.
#include "host/services/errorservice.h"

#include "component/objects/queryinterface.h"
#include "host/text.h"
#include "zelbasictypes/text/korcstring.h"

#include <ostream>

namespace host {

void ErrorService::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelErrorService>(this, className(), name, result);
}

void ErrorService::report(const KorString& text, const std::int32_t*, const KorCString& source) {
    out_ << "error: ";
    if (!source.isEmpty()) out_ << source.c_str() << ": ";
    out_ << toUtf8(text) << std::endl;
}

} // namespace host
