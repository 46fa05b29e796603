// SPDX-License-Identifier: Apache-2.0
// A reference that does not keep its target alive.
#pragma once

#include "component/objects/zelshared.h"

class ZelWeakRef : public ZelShared {
public:
    explicit ZelWeakRef(ZelShared* target) : target_(target) {}

    /// A weak reference is its own weak reference.
    ZelWeakRef* weakRef() override { return this; }
    /// The target, borrowed, or null once the target has given up its last reference.
    ZelShared* target() const { return target_; }

private:
    friend class ZelShared;
    ZelShared* target_;
};
