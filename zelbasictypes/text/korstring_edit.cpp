// SPDX-License-Identifier: Apache-2.0
// Changing wide strings and making changed copies of them.
#include "component/objects/services/izelstrsupport.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/strsupport.h"
#include "zelbasictypes/text/textediting.h"

#include <cstring>

namespace {

/// Turns the case of the ASCII letters from `first` on, 26 of them.
void turnCase(char16_t* text, char16_t first) {
    for (; *text; ++text)
        if (*text >= first && *text < first + 26) *text ^= 0x20;
}

void dropPlainSpace(char16_t* text) {
    char16_t* end = text + zeltext::boundedLength(text, INT64_MAX);
    *std::remove_if(text, end, zeltext::isPlainSpace) = 0;
}

} // namespace

void KorString::forgetNarrowForm() {
    if (narrow.isBorrowed()) narrow.data = nullptr;
}

void KorString::detach() {
    forgetNarrowForm();
    zeltext::detach(text, view());
}

KorString KorString::ownedCopy() const {
    KorString result;
    if (text.data) result.text = zeltext::compose({view()});
    return result;
}

void KorString::setAt(std::int32_t i, char16_t c) {
    detach();
    text.data[i] = c;
}

KorString& KorString::append(const KorString& other) {
    if (other.isNull()) return *this;
    const std::u16string_view piece = other.view();
    if (!piece.empty()) forgetNarrowForm();
    zeltext::extend(text, view().size(), piece);
    return *this;
}

KorString& KorString::append(char16_t c) {
    forgetNarrowForm();
    zeltext::extend(text, view().size(), std::u16string_view(&c, 1));
    return *this;
}

void KorString::remove(std::int32_t pos, std::int32_t count) {
    const std::size_t size = view().size();
    if (pos < 0 || static_cast<std::size_t>(pos) >= size || count == 0) return;
    const auto start = static_cast<std::size_t>(pos);
    const std::size_t left = size - start;
    const std::size_t gone = count < 0 ? left : std::min(left, static_cast<std::size_t>(count));
    detach();
    std::memmove(text.data + start, text.data + start + gone, (left - gone + 1) * sizeof(char16_t));
}

void KorString::truncate(std::int32_t n) {
    if (n < 0 || !text.isOwned() || zeltext::boundedLength(text.data, n) < n) return;
    text.data[n] = 0;
    forgetNarrowForm();
}

void KorString::replaceAll(const KorString& from, const KorString& to) {
    if (from.isEmpty() || to.isNull() || from == to) return;
    const char16_t* const before = text.data;
    zeltext::replaceAll(text, view(), from.view(), to.view());
    if (text.data != before) forgetNarrowForm();
}

KorString KorString::replaced(std::int32_t start, std::int32_t end, const KorString& with) const {
    const std::u16string_view units = view();
    const auto cut = [&units](std::int32_t at) {
        return std::min(units.size(), static_cast<std::size_t>(at));
    };
    KorString result;
    result.text = zeltext::compose(
        {units.substr(0, cut(std::max(start, 0))), with.view(), units.substr(cut(end))});
    return result;
}

KorString KorString::mid(std::int32_t start, std::int32_t n) const {
    KorString result;
    start = std::max(start, 0);
    if (n == 0 || !text.data || zeltext::boundedLength(text.data, start) < start) return result;
    const std::u16string_view piece = zeltext::limitedView(text.data + start, n);
    if (!piece.empty()) result.text = zeltext::compose({piece});
    return result;
}

KorString KorString::left(std::int32_t n) const { return mid(0, n); }

KorString KorString::from(std::int32_t start) const { return mid(start, -1); }

KorString KorString::toLower() const {
    KorString result = ownedCopy();
    if (result.isNull()) return result;
    if (IZelStrSupport* host = zelStrSupport())
        host->toLower(result.text.data);
    else
        turnCase(result.text.data, u'A');
    return result;
}

KorString KorString::toUpper() const {
    KorString result = ownedCopy();
    if (result.isNull()) return result;
    if (IZelStrSupport* host = zelStrSupport())
        host->toUpper(result.text.data);
    else
        turnCase(result.text.data, u'a');
    return result;
}

KorString KorString::simplify(char16_t separator) const {
    IZelStrSupport* host = zelStrSupport();
    if (!host || isNull()) return *this;
    KorString result = ownedCopy();
    host->simplify(result.text.data);
    for (char16_t* unit = result.text.data; separator != u' ' && *unit; ++unit)
        if (host->isSpace(*unit)) *unit = separator;
    return result;
}

KorString KorString::stripSpace() const {
    KorString result = ownedCopy();
    if (result.isNull()) return result;
    if (IZelStrSupport* host = zelStrSupport())
        host->stripSpace(result.text.data);
    else
        dropPlainSpace(result.text.data);
    return result;
}

KorString KorString::fit(std::int32_t width, std::int32_t mode, std::int32_t dots) const {
    KorString result;
    dots = std::max(dots, 0);
    if (width <= dots)
        result.text = zeltext::onlyStops<char16_t>(width);
    else if (length() <= width || !zeltext::isFitMode(mode))
        result = *this;
    else
        result.text = zeltext::fitted(view(), width, zeltext::FitMode(mode), dots);
    return result;
}
