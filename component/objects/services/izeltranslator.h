// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service that translates texts.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

/// Translates texts into the user's language. `key` is the English text. Placeholders in the
/// translation are replaced by the arguments.
class IZelTranslator : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelTranslator";

    /// The translation of `key` with the `count` texts that `args` points to.
    virtual KorString translateList(const char* key, std::int32_t count, const KorString* args) = 0;
    /// The translation of `key` with these arguments.
    /// @{
    virtual KorString translate(const char* key, const KorString& a1, const KorString& a2,
                                const KorString& a3, const KorString& a4, const KorString& a5,
                                const KorString& a6) = 0;
    virtual KorString translate(const char* key, const KorString& a1, const KorString& a2,
                                const KorString& a3, const KorString& a4, const KorString& a5) = 0;
    virtual KorString translate(const char* key, const KorString& a1, const KorString& a2,
                                const KorString& a3, const KorString& a4) = 0;
    virtual KorString translate(const char* key, const KorString& a1, const KorString& a2,
                                const KorString& a3) = 0;
    virtual KorString translate(const char* key, const KorString& a1, const KorString& a2) = 0;
    virtual KorString translate(const char* key, const KorString& a1) = 0;
    virtual KorString translate(const char* key) = 0;
    /// @}
    /// Reserved. The library doesn't call it.
    virtual bool query() = 0;
};
