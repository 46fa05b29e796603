// SPDX-License-Identifier: Apache-2.0
// The library's texts as Qt's and back, unit by unit.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <QString>

#include <string>

namespace host {

inline QString toQString(const KorString& text) {
    const auto view = text.view();
    return QString::fromUtf16(view.data(), static_cast<int>(view.size()));
}
inline KorString toKorString(const QString& text) {
    return KorString(reinterpret_cast<const char16_t*>(text.utf16()),
                     static_cast<std::int32_t>(text.size()));
}
inline std::string toUtf8(const KorString& text) { return toQString(text).toStdString(); }

} // namespace host
