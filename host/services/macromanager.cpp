// SPDX-License-Identifier: Apache-2.0
// The macro manager's interfaces.
#include "host/services/macromanager.h"

#include "component/objects/queryinterface.h"

namespace host {

void MacroManager::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IMacroMgr>(this, className(), name, result);
}

} // namespace host
