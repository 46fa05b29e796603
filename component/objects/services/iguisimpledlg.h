// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for notices and questions.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

/// The host's simple dialog.
class IGuiSimpleDlg : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IGuiSimpleDlg";

    /// Shows a notice (kind 1) or asks a question (kind 3), and blocks until the user has answered.
    /// 1 means yes. The reserved flags are false.
    virtual std::int32_t show(std::int32_t kind, const KorString& text, const KorString& title,
                              bool reserved1, bool reserved2, bool reserved3) = 0;
};
