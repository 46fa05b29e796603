// SPDX-License-Identifier: Apache-2.0
// What a program printed; how its lines end is the system's affair.
#pragma once

#include <QByteArray>

#include <string>

namespace apps {

inline std::string plainText(const QByteArray& bytes) {
    std::string text = bytes.toStdString();
    std::erase(text, '\r');
    return text;
}

} // namespace apps
