// SPDX-License-Identifier: Apache-2.0
// The busy state's interfaces.
#include "host/services/busystate.h"

#include "component/objects/queryinterface.h"

namespace host {

void BusyState::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IGuiBusyState>(this, className(), name, result);
}

} // namespace host
