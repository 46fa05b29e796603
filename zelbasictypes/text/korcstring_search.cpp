// SPDX-License-Identifier: Apache-2.0
// Searching in narrow strings.
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/textscan.h"

std::int32_t KorCString::find(const char* part, std::int32_t start) const {
    if (!ZEL_ASSERT(start >= 0)) return -1;
    if (!part || !*part) return 0;
    return zeltext::findFrom(buffer.data, part, start);
}

std::int32_t KorCString::find(char c, std::int32_t start) const {
    if (!ZEL_ASSERT(start >= 0)) return -1;
    if (c == 0 || zeltext::boundedLength(buffer.data, start) < start || !buffer.data) return -1;
    const char* hit = std::strchr(buffer.data + start, c);
    return hit ? static_cast<std::int32_t>(hit - buffer.data) : -1;
}

std::int32_t KorCString::rfind(char c) const {
    const char* hit = buffer.data && c != 0 ? std::strrchr(buffer.data, c) : nullptr;
    return hit ? static_cast<std::int32_t>(hit - buffer.data) : -1;
}

std::int32_t KorCString::rfind(const KorCString& part) const {
    const std::size_t hit = view().rfind(part.view());
    return hit == std::string_view::npos ? -1 : static_cast<std::int32_t>(hit);
}
