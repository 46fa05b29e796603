// SPDX-License-Identifier: Apache-2.0
// The translator without a language: the key is its own text.
#pragma once

#include "component/objects/services/izeltranslator.h"
#include "zelbasictypes/text/korstring.h"

/// Without state, for any thread. A subclass that overrides `lookup` alone changes all the forms.
class ZelTrivialTranslator : public IZelTranslator {
public:
    /// The text of a key; true. The forms below don't look at the result.
    virtual bool lookup(const char* key, KorString& out);

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override;

    KorString translateList(const char* key, std::int32_t count, const KorString* args) override;
    KorString translate(const char* key, const KorString& a1, const KorString& a2,
                        const KorString& a3, const KorString& a4, const KorString& a5,
                        const KorString& a6) override;
    KorString translate(const char* key, const KorString& a1, const KorString& a2,
                        const KorString& a3, const KorString& a4, const KorString& a5) override;
    KorString translate(const char* key, const KorString& a1, const KorString& a2,
                        const KorString& a3, const KorString& a4) override;
    KorString translate(const char* key, const KorString& a1, const KorString& a2,
                        const KorString& a3) override;
    KorString translate(const char* key, const KorString& a1, const KorString& a2) override;
    KorString translate(const char* key, const KorString& a1) override;
    KorString translate(const char* key) override;
    /// False.
    bool query() override;

private:
    template <class... Args> KorString filled(const char* key, const Args&... args);
};
