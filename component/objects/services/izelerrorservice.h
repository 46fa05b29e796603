// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for error messages.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;

/// Reports errors to the user.
class IZelErrorService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelErrorService";

    /// Shows an error. `kind` points at its kind, which is always 1 here. `source` names the origin
    /// and may be empty.
    virtual void report(const KorString& text, const std::int32_t* kind,
                        const KorCString& source) = 0;
};
