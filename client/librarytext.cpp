// SPDX-License-Identifier: Apache-2.0
// Texts over their narrow form, files over the platform's descriptors.
#include "client/librarytext.h"

#include "platform/file.h"

namespace flag = platform::open_flag;

namespace {

bool openAs(const char16_t* path, std::int32_t flags, QIODevice::OpenMode mode, QFile& file) {
    const platform::Descriptor descriptor = platform::open(path, flags | flag::binary);
    if (descriptor < 0) return false;
    if (file.open(descriptor, mode, QFileDevice::AutoCloseHandle)) return true;
    platform::close(descriptor);
    return false;
}

} // namespace

QString narrowText(const KorString& text) { return QString::fromUtf8(text.toNarrow()); }

QStringList narrowTexts(const std::list<KorString>& texts) {
    QStringList result;
    for (const KorString& text : texts) result << narrowText(text);
    return result;
}

KorString libraryText(const QString& text) {
    return KorString(reinterpret_cast<const char16_t*>(text.utf16()),
                     static_cast<std::int32_t>(text.size()));
}

bool openForReading(const KorString& path, QFile& file) {
    return openAs(path.c_str(), flag::readOnly, QIODevice::ReadOnly, file);
}

bool openForAppending(const char16_t* path, QFile& file) {
    return openAs(path, flag::writeOnly | flag::append | flag::create,
                  QIODevice::WriteOnly | QIODevice::Append, file);
}
