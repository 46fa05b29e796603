// SPDX-License-Identifier: Apache-2.0
// Counting through the count service, and the life of the weak reference.
#include "component/objects/zelshared.h"

#include "component/objects/countservice.h"
#include "component/objects/zelweakref.h"

void ZelShared::addRef() { zelIncrement(&count); }

void ZelShared::release() {
    if (dropReference()) delete this;
}

void ZelShared::releaseNoDelete() { dropReference(); }

std::int32_t ZelShared::refCount() { return count; }

ZelWeakRef* ZelShared::weakRef() {
    if (!weak) {
        weak = new ZelWeakRef(this);
        weak->addRef();
    }
    return weak;
}

/// True when the last reference went; the weak reference has then lost its target already.
bool ZelShared::dropReference() {
    if (!zelDecrement(&count)) return false;
    if (weak) {
        weak->target_ = nullptr;
        weak->release();
        weak = nullptr;
    }
    return true;
}
