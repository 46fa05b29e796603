// SPDX-License-Identifier: Apache-2.0
/// @file
/// A reference that does not keep its target alive.
#pragma once

#include "component/objects/zelshared.h"

/// A reference that doesn't keep its target alive. It is obtained from ZelShared::weakRef() and
/// counted itself. A thread that uses the target must know that it isn't released meanwhile.
class ZelWeakRef : public ZelShared {
public:
    /// Refers to `target`, which clears the reference at its end.
    explicit ZelWeakRef(ZelShared* target) : target_(target) {}

    /// A weak reference is its own weak reference.
    ZelWeakRef* weakRef() override { return this; }
    /// The target, borrowed, or null once the target has lost its last reference.
    ZelShared* target() const { return target_; }

private:
    friend class ZelShared;
    ZelShared* target_;
};
