// SPDX-License-Identifier: Apache-2.0
// The import module's identity, for the library inside it.
#include "component/module/identity.h"

#include "component/moduleidentity.h"

namespace {

const ZelModuleIdentity identity{zelImportModuleName, zelImportComponentId};

} // namespace
