// SPDX-License-Identifier: Apache-2.0
// The host's named directories.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

class IZelDirService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDirService";

    /// The directory for a purpose, such as "temp"; borrowed, empty when there is none.
    virtual const KorString& directory(const char* name) = 0;
};
