// SPDX-License-Identifier: Apache-2.0
// Making, copying, reading and comparing wide strings.
#include "zelbasictypes/text/korstring.h"

#include "component/objects/services/izelstrsupport.h"
#include "zelbasictypes/text/asciirun.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/strsupport.h"
#include "zelbasictypes/text/textscan.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <vector>

namespace {

zeltext::Buffer<char16_t> widened(std::string_view bytes) {
    auto room = zeltext::makeRoom<char16_t>(static_cast<std::int64_t>(bytes.size()));
    if (room.data) zeltext::widenSigned(bytes.data(), bytes.size(), room.data);
    return room;
}

std::int32_t signOf(std::int32_t order) { return (order > 0) - (order < 0); }

std::int32_t order(const KorString& a, const KorString& b) {
    if (IZelStrSupport* host = zelStrSupport()) return host->compare(a, b);
    return a.view().compare(b.view());
}

} // namespace

KorString::KorString(const char* source) : KorString(source, -1) {}

KorString::KorString(const char* source, std::int32_t limit) {
    if (source) text = widened(zeltext::limitedView(source, limit));
}

KorString::KorString(const char16_t* source, std::int32_t length) {
    if (source) text = zeltext::compose({zeltext::limitedView(source, length)});
}

KorString::KorString(const KorCString& source) : KorString(source.c_str(), -1) {}

KorString::KorString(char c) : text(widened({&c, 1})) {}

KorString::KorString(char16_t c) : text(zeltext::compose({std::u16string_view(&c, 1)})) {}

void KorString::copyOwned() { text = zeltext::compose({view()}); }

KorString& KorString::operator=(const KorString& other) {
    if (this == &other) return *this;
    forgetNarrowForm();
    if (other.text.isOwned()) {
        zeltext::store(text, other.view());
    } else {
        text.release();
        text = other.text;
    }
    if (other.narrow.isBorrowed()) {
        narrow.release();
        narrow = other.narrow;
    }
    return *this;
}

void KorString::assign(const char* source, std::int32_t n) {
    forgetNarrowForm();
    if (!source) return text.release();
    const std::string_view bytes = zeltext::limitedView(source, n);
    if (!text.fits(static_cast<std::int64_t>(bytes.size()))) {
        text.release();
        text = widened(bytes);
        return;
    }
    zeltext::widenSigned(bytes.data(), bytes.size(), text.data);
    text.data[bytes.size()] = 0;
}

void KorString::assign(const char16_t* source, std::int32_t n) {
    forgetNarrowForm();
    if (source && n != 0) return zeltext::store(text, zeltext::limitedView(source, n));
    text.release();
    text.data = const_cast<char16_t*>(source);
}

std::int32_t KorString::length() const {
    return text.data ? static_cast<std::int32_t>(zeltext::unitsBefore(text.data, 0)) : 0;
}

void KorString::swap(KorString& other) noexcept {
    std::swap(text, other.text);
    std::swap(narrow, other.narrow);
    std::swap(utf8, other.utf8);
}

void KorString::swapText(KorString& other) noexcept {
    forgetNarrowForm();
    other.forgetNarrowForm();
    std::swap(text, other.text);
}

std::int32_t KorString::compare(const KorString& other) const {
    return *this == other ? 0 : signOf(order(*this, other));
}

bool KorString::startsWith(const KorString& other, std::int32_t n) const {
    const std::u16string_view part = zeltext::limitedView(other.c_str(), n);
    if (n > 0 && part.size() < static_cast<std::size_t>(n)) return false;
    return zeltext::limitedView(c_str(), static_cast<std::int32_t>(part.size())) == part;
}

std::uint32_t KorString::hash() const {
    std::uint32_t sum = 0;
    for (const char16_t unit : view()) sum += unit;
    return sum;
}

bool operator==(const KorString& a, const KorString& b) {
    if (a.c_str() == b.c_str()) return true;
    if (*a.c_str() != *b.c_str()) return false;
    const std::u16string_view x = a.view(), y = b.view();
    return x.size() == y.size() &&
           std::memcmp(x.data(), y.data(), x.size() * sizeof(char16_t)) == 0;
}

bool operator==(const KorString& a, const char* b) {
    const std::u16string_view units = a.view();
    const std::string_view bytes(b ? b : "");
    return std::equal(
        units.begin(), units.end(), bytes.begin(), bytes.end(),
        [](char16_t u, char c) { return u == static_cast<char16_t>(static_cast<signed char>(c)); });
}

bool operator<(const KorString& a, const KorString& b) { return order(a, b) < 0; }

std::ostream& operator<<(std::ostream& stream, const KorString& text) {
    return stream << text.toNarrow();
}
