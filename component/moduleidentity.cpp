// SPDX-License-Identifier: Apache-2.0
// Holds the identity that the module gave itself.
#include "component/moduleidentity.h"

namespace {

constinit const ZelModuleIdentity* identity = nullptr;
constinit const ZelGuid nil;

} // namespace

ZelModuleIdentity::ZelModuleIdentity(const char* name, const ZelGuid& id)
    : shortName(name), componentId(id) {
    identity = this;
}

const char* zelModuleName() { return identity ? identity->shortName : ""; }

const ZelGuid* zelComponentId() { return identity ? &identity->componentId : &nil; }
