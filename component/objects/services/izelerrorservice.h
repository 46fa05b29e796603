// SPDX-License-Identifier: Apache-2.0
// Where errors are reported to the user.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;

class IZelErrorService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelErrorService";

    /// `kind` points at the kind of the error, 1 everywhere here. `source` may be empty.
    virtual void report(const KorString& text, const std::int32_t* kind,
                        const KorCString& source) = 0;
};
