// SPDX-License-Identifier: Apache-2.0
// A host's text operations that can be told from everybody else's.
#pragma once

#include "component/objects/services/izelstrsupport.h"
#include "tests/support/service.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <algorithm>

/// Answers that no fall-back gives.
class OddSupport : public testsupport::Service<IZelStrSupport> {
public:
    void toNarrow(KorCString& out, const KorString& text) override {
        if (text == "none") return;
        out = KorCString::concat("narrow ", text.length());
    }
    std::int32_t compare(const KorString& a, const KorString& b) override {
        return 100 * (b.length() - a.length());
    }
    bool isSpace(char16_t c) override { return c == u'_'; }
    bool isDigit(char16_t c) override { return c == u'\u0663'; }
    bool contains(const KorString&, const KorString&, bool caseSensitive) override {
        return !caseSensitive;
    }
    void stripSpace(char16_t* text) override { text[1] = 0; }
    void simplify(char16_t* text) override { std::replace(text, text + 3, u'a', u'_'); }
    void toLower(char16_t* text) override { text[0] = u'l'; }
    void toUpper(char16_t* text) override { text[0] = u'u'; }
};
