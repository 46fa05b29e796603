// SPDX-License-Identifier: Apache-2.0
/// @file
/// What every shape object of the host's modelling component can do.
#pragma once

#include "component/objects/izelunknown.h"

struct ZelMatrix4;

/// A shape object of any kind.
class IZelFeature : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelFeature";

    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}
    virtual void reserved7() {}
    virtual void reserved8() {}
    /// Scales the object in place, from model units to metres. The matrix is borrowed for the call.
    virtual void transform(const ZelMatrix4* matrix) = 0;
};
