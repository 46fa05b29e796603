// SPDX-License-Identifier: Apache-2.0
// Asks the settings store first and the macro manager second.
#include "client/batchmode.h"

#include "component/objects/services/idatastore.h"
#include "component/objects/services/imacromgr.h"
#include "component/objects/sptr.h"

namespace {

bool isSettingOn() {
    const SPtr<IDataStore> store;
    return store && store->getBool("General/Show Batch Processing", 0) != 0;
}

bool doesMacroRun() {
    const SPtr<IMacroMgr> macros;
    return macros && macros->query(true);
}

} // namespace

bool isBatchMode() { return isSettingOn() || doesMacroRun(); }
