// SPDX-License-Identifier: Apache-2.0
// Changing narrow strings and making changed copies of them.
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/textediting.h"

#include <cctype>
#include <istream>

namespace {

bool isSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
    return text;
}

} // namespace

void KorCString::detach() { zeltext::detach(buffer, view()); }

void KorCString::setAt(std::int32_t i, char c) {
    detach();
    buffer.data[i] = c;
}

void KorCString::assign(const char* text, std::int32_t length) {
    if (text)
        zeltext::store(buffer, zeltext::limitedView(text, length));
    else
        buffer.release();
}

KorCString& KorCString::append(const char* text) {
    if (text) zeltext::extend(buffer, view().size(), std::string_view(text));
    return *this;
}

KorCString& KorCString::append(char c) {
    zeltext::extend(buffer, view().size(), std::string_view(&c, 1));
    return *this;
}

void KorCString::replaceRange(std::int32_t pos, std::int32_t count, const KorCString& with) {
    const std::string_view text = view(), piece = with.view();
    if (pos < 0 || static_cast<std::size_t>(pos) > text.size()) return;
    const auto start = static_cast<std::size_t>(pos);
    const std::string_view old = text.substr(start, static_cast<std::size_t>(count));
    if (old.size() == piece.size()) {
        detach();
        if (!piece.empty()) std::memmove(buffer.data + start, piece.data(), piece.size());
        return;
    }
    KorCString result;
    result.buffer =
        zeltext::compose({text.substr(0, start), piece, text.substr(start + old.size())});
    swap(result);
}

void KorCString::replaceAll(const KorCString& from, const KorCString& to) {
    if (from.isEmpty() || !to.c_str() || from == to) return;
    zeltext::replaceAll(buffer, view(), from.view(), to.view());
}

void KorCString::replaceChar(char a, char b) {
    detach();
    for (char* c = buffer.data; c && *c; ++c)
        if (*c == a) *c = b;
}

void KorCString::toLower() {
    detach();
    for (char* c = buffer.data; c && *c; ++c)
        *c = static_cast<char>(std::tolower(static_cast<unsigned char>(*c)));
}

void KorCString::toUpper() {
    detach();
    for (char* c = buffer.data; c && *c; ++c)
        *c = static_cast<char>(std::toupper(static_cast<unsigned char>(*c)));
}

void KorCString::reverse() {
    detach();
    std::reverse(buffer.data, buffer.data + length());
}

void KorCString::takeUtf8(const KorString& source) {
    source.toUtf8();
    buffer.release();
    buffer = std::exchange(source.utf8, {});
}

bool KorCString::readLine(std::istream& stream) {
    char line[4096 + 1];
    stream.getline(line, sizeof line);
    assign(line);
    return !stream.fail();
}

KorCString KorCString::trim() const {
    KorCString result;
    if (buffer.data) result.buffer = zeltext::compose({trimmed(view())});
    return result;
}

KorCString KorCString::simplify(char separator) const {
    if (!buffer.data) return sharedEmpty();
    KorCString result = trim();
    char* to = result.buffer.data;
    for (const char* c = to; *c; ++c) {
        if (!isSpace(*c))
            *to++ = *c;
        else if (!isSpace(c[1]))
            *to++ = separator;
    }
    *to = 0;
    return result;
}

KorCString KorCString::fit(std::int32_t width, std::int32_t mode, std::int32_t dots) const {
    KorCString result;
    dots = std::max(dots, 0);
    if (width <= dots)
        result.buffer = zeltext::onlyStops<char>(width);
    else if (length() <= width)
        result = *this;
    else if (!zeltext::isFitMode(mode)) {
        zelAssertFail("0", __FILE__, __LINE__);
        result = *this;
    } else
        result.buffer = zeltext::fitted(view(), width, zeltext::FitMode(mode), dots);
    return result;
}
