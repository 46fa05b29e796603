// SPDX-License-Identifier: Apache-2.0
// The narrow and UTF-8 forms of wide strings.
#include "component/objects/services/izelstrsupport.h"
#include "zelbasictypes/text/asciirun.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/strsupport.h"
#include "zelbasictypes/text/utf8.h"

#include <algorithm>

namespace {

/// Texts of up to so many units are encoded first and then given a block that fits.
constexpr std::size_t shortText = 1024;

/// Makes `buffer` an owned block with room for `length` units, keeping the block when it is enough.
void provideRoom(zeltext::Buffer<char>& buffer, std::size_t length) {
    if (buffer.fits(static_cast<std::int64_t>(length))) return;
    buffer.release();
    buffer = zeltext::makeRoom<char>(static_cast<std::int64_t>(length));
}

/// Makes `buffer` the text, if that is nothing but ASCII; else it holds something or other. What is
/// seen at once to be more costs no block.
bool storeAscii(zeltext::Buffer<char>& buffer, std::u16string_view text) {
    constexpr std::size_t seenAtOnce = 64;
    const std::size_t front = std::min(text.size(), seenAtOnce);
    if (zeltext::asciiRun(text.data(), front) < front) return false;
    provideRoom(buffer, text.size());
    if (zeltext::copyAsciiRun(text.data(), text.size(), buffer.data) < text.size()) return false;
    buffer.data[text.size()] = 0;
    return true;
}

/// Keeps the ASCII units; `to` has room for all of them.
void keepAscii(std::u16string_view text, char* to) {
    while (!text.empty()) {
        const std::size_t run = zeltext::copyAsciiRun(text.data(), text.size(), to);
        to += run;
        text.remove_prefix(run);
        while (!text.empty() && text.front() >= 0x80) text.remove_prefix(1);
    }
    *to = 0;
}

} // namespace

const char* KorString::toNarrow() const {
    if (narrow.isBorrowed()) return narrow.data;
    if (IZelStrSupport* host = zelStrSupport()) {
        KorCString made;
        host->toNarrow(made, *this);
        zeltext::store(narrow, made.view());
        return narrow.data;
    }
    const std::u16string_view units = view();
    provideRoom(narrow, units.size());
    keepAscii(units, narrow.data);
    return narrow.data;
}

const char* KorString::toUtf8() const {
    const std::u16string_view units = view();
    if (storeAscii(utf8, units)) return utf8.data;
    if (units.size() <= shortText) {
        char bytes[3 * shortText + 1];
        zeltext::store(utf8, {bytes, zeltext::encodeUtf8(units, bytes)});
        return utf8.data;
    }
    provideRoom(utf8, zeltext::utf8Length(units.data(), units.size()));
    if (!utf8.data) return "";
    zeltext::encodeUtf8(units, utf8.data);
    return utf8.data;
}

KorString KorString::fromUtf8(const char* source) {
    const std::string_view bytes(source ? source : "");
    if (bytes.empty()) return sharedEmpty();
    KorString result;
    result.text = zeltext::makeRoom<char16_t>(static_cast<std::int64_t>(bytes.size()));
    if (!result.text.data || !zeltext::decodeUtf8(bytes, result.text.data)) return sharedEmpty();
    return result;
}
