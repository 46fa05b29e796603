// SPDX-License-Identifier: Apache-2.0
// Turns a key in plain words into the text that the user sees, placeholders %1 and up filled.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

class IZelTranslator : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelTranslator";

    /// `args` is an array of `count` texts.
    virtual KorString translateList(const char* key, std::int32_t count, const KorString* args) = 0;
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
    virtual bool query() = 0;
};
