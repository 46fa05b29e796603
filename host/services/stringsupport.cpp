// SPDX-License-Identifier: Apache-2.0
// Unicode by way of Qt. Nothing here calls an operation of KorString that would ask for this
// service again.
#include "host/services/stringsupport.h"

#include "component/objects/queryinterface.h"
#include "host/text.h"
#include "zelbasictypes/text/korcstring.h"

#include <algorithm>

namespace host {
namespace {

QString wholeText(const char16_t* text) { return QString::fromUtf16(text); }

/// Writes a text back that is not longer than the one it came from.
void writeBack(char16_t* text, const QString& shorter) {
    const auto* units = reinterpret_cast<const char16_t*>(shorter.utf16());
    std::copy(units, units + shorter.size() + 1, text);
}

template <class Convert> void convertEach(char16_t* text, Convert convert) {
    for (char16_t* at = text; *at; ++at) {
        if (!QChar::isHighSurrogate(*at) || !QChar::isLowSurrogate(at[1])) {
            const char32_t other = convert(char32_t(*at));
            if (!QChar::requiresSurrogates(other)) *at = static_cast<char16_t>(other);
            continue;
        }
        const char32_t other = convert(QChar::surrogateToUcs4(at[0], at[1]));
        if (QChar::requiresSurrogates(other)) {
            at[0] = QChar::highSurrogate(other);
            at[1] = QChar::lowSurrogate(other);
        }
        ++at;
    }
}

} // namespace

void StringSupport::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelStrSupport>(this, className(), name, result);
}

void StringSupport::toNarrow(KorCString& out, const KorString& text) {
    out.assign(toQString(text).toUtf8().constData());
}

std::int32_t StringSupport::compare(const KorString& a, const KorString& b) {
    const QString left = toQString(a);
    const QString right = toQString(b);
    const std::lock_guard lock(mutex_);
    const int order = collator_.compare(left, right);
    return order != 0 ? order : QString::compare(left, right);
}

bool StringSupport::isSpace(char16_t c) { return QChar::isSpace(c); }

bool StringSupport::isDigit(char16_t c) { return QChar::isDigit(c); }

bool StringSupport::contains(const KorString& text, const KorString& part, bool caseSensitive) {
    return toQString(text).contains(toQString(part),
                                    caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
}

void StringSupport::stripSpace(char16_t* text) {
    char16_t* end = text;
    while (*end) ++end;
    *std::remove_if(text, end, [this](char16_t c) { return isSpace(c); }) = 0;
}

void StringSupport::simplify(char16_t* text) { writeBack(text, wholeText(text).simplified()); }

void StringSupport::toLower(char16_t* text) {
    convertEach(text, [](char32_t c) { return char32_t(QChar::toLower(c)); });
}

void StringSupport::toUpper(char16_t* text) {
    convertEach(text, [](char32_t c) { return char32_t(QChar::toUpper(c)); });
}

} // namespace host
