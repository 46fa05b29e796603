// SPDX-License-Identifier: Apache-2.0
// Making, copying, reading and comparing narrow strings.
#include "zelbasictypes/text/korcstring.h"

#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/textscan.h"

#include <algorithm>
#include <istream>
#include <ostream>

KorCString::KorCString(const char* text) : KorCString(text, -1) {}

KorCString::KorCString(const char* text, std::int32_t limit) {
    if (text) buffer = zeltext::compose({zeltext::limitedView(text, limit)});
}

KorCString::KorCString(const char16_t* text, std::int32_t length) {
    if (!text) return;
    const std::u16string_view units = zeltext::limitedView(text, length);
    buffer = zeltext::makeRoom<char>(static_cast<std::int64_t>(units.size()));
    if (!buffer.data) return;
    std::transform(units.begin(), units.end(), buffer.data,
                   [](char16_t unit) { return static_cast<char>(unit); });
}

KorCString::KorCString(char c) : buffer(zeltext::compose({std::string_view(&c, 1)})) {}

void KorCString::copyOwned() { buffer = zeltext::compose({view()}); }

KorCString& KorCString::operator=(const KorCString& other) {
    if (this != &other) KorCString(other).swap(*this);
    return *this;
}

KorCString KorCString::concat(const KorCString& a, const KorCString& b) {
    return concat(a, b, KorCString());
}

KorCString KorCString::concat(const KorCString& a, const KorCString& b, const KorCString& c) {
    KorCString result;
    result.buffer = zeltext::compose({a.view(), b.view(), c.view()});
    return result;
}

KorCString KorCString::concat(const char* const* texts) {
    if (!texts) return KorCString();
    ZelVector<std::string_view> pieces;
    for (; *texts; ++texts) pieces.emplace_back(*texts);
    KorCString result;
    result.buffer = zeltext::compose(pieces.data(), pieces.size());
    return result;
}

KorCString KorCString::concat(const KorCString& text, std::int32_t number) {
    return concat(text, KorCString(number));
}

const KorCString& KorCString::sharedEmpty() {
    static const KorCString empty = borrow("");
    return empty;
}

std::int32_t KorCString::compare(const KorCString& other) const {
    if (!buffer.data || !other.buffer.data)
        return (buffer.data != nullptr) - (other.buffer.data != nullptr);
    const int order = std::strcmp(buffer.data, other.buffer.data);
    return (order > 0) - (order < 0);
}

std::uint32_t KorCString::hash() const {
    if (!buffer.data) return 0;
    std::uint32_t h = 5381;
    for (const char* c = buffer.data; *c; ++c)
        h = h * 33 + static_cast<std::uint32_t>(static_cast<signed char>(*c));
    return h;
}

bool operator==(const KorCString& a, const KorCString& b) { return a == b.c_str(); }

bool operator==(const KorCString& a, const char* b) {
    return a.c_str() == b || (a.c_str() && b && std::strcmp(a.c_str(), b) == 0);
}

bool operator<(const KorCString& a, const KorCString& b) { return a.compare(b) < 0; }

std::ostream& operator<<(std::ostream& stream, const KorCString& text) {
    return stream << text.view();
}
