// SPDX-License-Identifier: Apache-2.0
// The progress service's interfaces.
#include "host/services/progress.h"

#include "component/objects/queryinterface.h"

namespace host {

void Progress::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelProgress>(this, className(), name, result);
}

} // namespace host
