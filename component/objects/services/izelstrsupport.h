// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for the characters of the user's language.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;

/// Unicode-aware operations on texts. Any thread that uses strings may call them. Without this
/// service strings fall back to rules that know ASCII letters only.
class IZelStrSupport : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelStrSupport";

    /// Stores `text` in the host's narrow encoding in `out`.
    virtual void toNarrow(KorCString& out, const KorString& text) = 0;
    /// The order of the user's language: negative, 0 or positive.
    virtual std::int32_t compare(const KorString& a, const KorString& b) = 0;
    /// The class of one UTF-16 code unit.
    /// @{
    virtual bool isSpace(char16_t c) = 0;
    virtual bool isDigit(char16_t c) = 0;
    /// @}
    /// Whether `part` occurs in `text`.
    virtual bool contains(const KorString& text, const KorString& part, bool caseSensitive) = 0;
    /// Changes a terminated text in place and never makes it longer: removes all white space,
    /// reduces white space to single blanks, or changes the case.
    /// @{
    virtual void stripSpace(char16_t* text) = 0;
    virtual void simplify(char16_t* text) = 0;
    virtual void toLower(char16_t* text) = 0;
    virtual void toUpper(char16_t* text) = 0;
    /// @}
};
