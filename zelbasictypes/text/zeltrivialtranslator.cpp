// SPDX-License-Identifier: Apache-2.0
// Filling the placeholders of texts that are their own translation.
#include "zelbasictypes/text/zeltrivialtranslator.h"

#include "component/objects/queryinterface.h"

#include <string>

namespace {

/// Placeholders %1 to %9 and %: for the tenth; one that has no argument counts as empty.
constexpr std::size_t placeholderCount = 10;

void fillFirst(KorString& text, std::int32_t n, const KorString& with) {
    std::string marker("%");
    marker += std::to_string(n);
    const std::int32_t start = text.find(marker.c_str());
    if (start < 0) return;
    text = text.replaced(start, start + static_cast<std::int32_t>(marker.size()), with);
}

} // namespace

void ZelTrivialTranslator::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelTranslator>(this, "ZelTrivialTranslator", name, result);
}

const char* ZelTrivialTranslator::className() { return "ZelTrivialTranslator"; }

bool ZelTrivialTranslator::lookup(const char* key, KorString& out) {
    out = KorString(key);
    return true;
}

template <class... Args>
KorString ZelTrivialTranslator::filled(const char* key, const Args&... args) {
    KorString text;
    lookup(key, text);
    const KorString* const pointers[placeholderCount + 1] = {&args...};
    text.substitute(pointers);
    return text;
}

KorString ZelTrivialTranslator::translateList(const char* key, std::int32_t count,
                                              const KorString* args) {
    KorString text;
    lookup(key, text);
    for (std::int32_t n = 1; n <= count; ++n) fillFirst(text, n, args[n - 1]);
    return text;
}

KorString ZelTrivialTranslator::translate(const char* key, const KorString& a1, const KorString& a2,
                                          const KorString& a3, const KorString& a4,
                                          const KorString& a5, const KorString& a6) {
    return filled(key, a1, a2, a3, a4, a5, a6);
}

KorString ZelTrivialTranslator::translate(const char* key, const KorString& a1, const KorString& a2,
                                          const KorString& a3, const KorString& a4,
                                          const KorString& a5) {
    return filled(key, a1, a2, a3, a4, a5);
}

KorString ZelTrivialTranslator::translate(const char* key, const KorString& a1, const KorString& a2,
                                          const KorString& a3, const KorString& a4) {
    return filled(key, a1, a2, a3, a4);
}

KorString ZelTrivialTranslator::translate(const char* key, const KorString& a1, const KorString& a2,
                                          const KorString& a3) {
    return filled(key, a1, a2, a3);
}

KorString ZelTrivialTranslator::translate(const char* key, const KorString& a1,
                                          const KorString& a2) {
    return filled(key, a1, a2);
}

KorString ZelTrivialTranslator::translate(const char* key, const KorString& a1) {
    return filled(key, a1);
}

KorString ZelTrivialTranslator::translate(const char* key) {
    KorString text;
    lookup(key, text);
    return text;
}

bool ZelTrivialTranslator::query() { return false; }
