// SPDX-License-Identifier: Apache-2.0
// The host's simple dialog.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

class IGuiSimpleDlg : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IGuiSimpleDlg";

    /// Kind 1 is a notice, kind 3 a question. Blocks until it is answered; 1 means yes.
    virtual std::int32_t show(std::int32_t kind, const KorString& text, const KorString& title,
                              bool reserved1, bool reserved2, bool reserved3) = 0;
};
