// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for named directories.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

/// The host's directories by their purpose.
class IZelDirService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDirService";

    /// The directory for a purpose, such as "temp". Borrowed; empty when there is none.
    virtual const KorString& directory(const char* name) = 0;
};
