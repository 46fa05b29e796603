// SPDX-License-Identifier: Apache-2.0
// Counting through the count service, and the life of the weak reference.
#include "component/objects/zelshared.h"

#include "component/objects/countservice.h"
#include "component/objects/zelweakref.h"

void ZelShared::addRef() { zelIncrement(&count_); }

void ZelShared::release() {
    if (dropReference()) delete this;
}

void ZelShared::releaseNoDelete() { dropReference(); }

std::int32_t ZelShared::refCount() { return count_; }

ZelWeakRef* ZelShared::weakRef() {
    if (!weak_) {
        weak_ = new ZelWeakRef(this);
        weak_->addRef();
    }
    return weak_;
}

/// True when the last reference went; the weak reference has then lost its target already.
bool ZelShared::dropReference() {
    if (!zelDecrement(&count_)) return false;
    if (weak_) {
        weak_->target_ = nullptr;
        weak_->release();
        weak_ = nullptr;
    }
    return true;
}
