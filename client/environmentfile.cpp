// SPDX-License-Identifier: Apache-2.0
// Reads the environment file line by line and swaps the values in and out.
#include "client/environmentfile.h"

#include "client/librarytext.h"
#include "platform/environment.h"

namespace {

constexpr qint64 lineLimitBytes = 4999;

/// The part of the line behind its "=", up to the end of the line.
QByteArray valueOf(const QByteArray& line, int equals) {
    int end = equals + 1;
    while (end < line.size() && line[end] != '\r' && line[end] != '\n') ++end;
    return line.mid(equals + 1, end - equals - 1);
}

/// The value from before the first change is the one that stays.
void change(const KorString& name, const KorString& value, SavedEnvironment& saved) {
    std::u16string before;
    platform::readEnvironment(name.c_str(), before);
    saved.emplace(name, KorString(before.c_str()));
    platform::setEnvironment(name.c_str(), value.c_str());
}

void applyLine(const QByteArray& line, SavedEnvironment& saved) {
    const int equals = static_cast<int>(line.indexOf('='));
    if (equals <= 0 || line.startsWith('#')) return;
    const QByteArray value = valueOf(line, equals);
    if (value.isEmpty()) return;
    change(KorString(line.left(equals).constData()), KorString(value.constData()), saved);
}

} // namespace

bool loadEnvironmentFile(const KorString& path, SavedEnvironment& saved) {
    if (path.isEmpty()) return true;
    QFile file;
    if (!openForReading(path, file)) return false;
    saved.clear();
    for (QByteArray line = file.readLine(lineLimitBytes); !line.isEmpty();
         line = file.readLine(lineLimitBytes)) {
        applyLine(line, saved);
    }
    return true;
}

void restoreEnvironment(SavedEnvironment& saved) {
    for (const auto& [name, value] : saved) {
        platform::setEnvironment(name.c_str(), value.c_str());
    }
    saved.clear();
}
