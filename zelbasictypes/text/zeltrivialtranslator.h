// SPDX-License-Identifier: Apache-2.0
/// @file
/// The translator for which each key is its own text.
#pragma once

#include "component/objects/services/izeltranslator.h"
#include "zelbasictypes/text/korstring.h"

/// Has no state, so any thread may use it. All forms of translation go through `lookup`: a subclass
/// that overrides it changes them all.
class ZelTrivialTranslator : public IZelTranslator {
public:
    /// Stores the text of a key. Always true here; the forms below don't look at the result.
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
    /// Always false.
    bool query() override;

private:
    template <class... Args> KorString filled(const char* key, const Args&... args);
};
