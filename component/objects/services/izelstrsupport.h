// SPDX-License-Identifier: Apache-2.0
// The host's locale and Unicode aware text operations.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;

class IZelStrSupport : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelStrSupport";

    virtual void toNarrow(KorCString& out, const KorString& text) = 0;
    /// Below 0, 0 or above 0.
    virtual std::int32_t compare(const KorString& a, const KorString& b) = 0;
    virtual bool isSpace(char16_t c) = 0;
    virtual bool isDigit(char16_t c) = 0;
    virtual bool contains(const KorString& text, const KorString& part, bool caseSensitive) = 0;
    /// The four that follow change a terminated text in place and never make it longer.
    virtual void stripSpace(char16_t* text) = 0;
    virtual void simplify(char16_t* text) = 0;
    virtual void toLower(char16_t* text) = 0;
    virtual void toUpper(char16_t* text) = 0;
};
