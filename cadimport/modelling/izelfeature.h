// SPDX-License-Identifier: Apache-2.0
// What every shape object of the host can do, whatever its kind.
#pragma once

#include "component/objects/izelunknown.h"

struct ZelMatrix4;

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
    /// Scales the object in place. The matrix is borrowed for the call.
    virtual void transform(const ZelMatrix4* matrix) = 0;
};
