// SPDX-License-Identifier: Apache-2.0
// Filling placeholders with narrow arguments, one placeholder after the other.
#include "zelbasictypes/text/zelformat.h"

namespace {

void fill(KorCString& text, std::int32_t number, const KorCString& arg) {
    text.replaceAll(KorCString::concat(KorCString::borrow("%"), number), arg);
}

} // namespace

KorString zelFormatDescending(const char* text, std::int32_t n, const KorCString* const* args) {
    KorCString result = KorCString::borrow(text);
    for (std::int32_t i = n; i >= 1; --i) fill(result, i, *args[i - 1]);
    return KorString(result);
}

KorString zelFormat(const char* text, std::int32_t n, const KorCString* args) {
    KorCString result = KorCString::borrow(text);
    for (std::int32_t i = 1; i <= n; ++i) fill(result, i, args[i - 1]);
    return KorString(result);
}
