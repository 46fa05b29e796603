// SPDX-License-Identifier: Apache-2.0
// Progress of a long operation.
#pragma once

#include "component/objects/izelunknown.h"

class IZelProgress : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelProgress";

    /// `fraction` of the whole that is done, from 0.0 to 1.0.
    virtual void setProgress(double fraction) = 0;
};
