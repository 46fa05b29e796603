// SPDX-License-Identifier: Apache-2.0
// Texts over their narrow form, files over the platform's descriptors.
#include "client/librarytext.h"

#include "platform/file.h"

QString narrowText(const KorString& text) { return QString::fromUtf8(text.toNarrow()); }

QStringList narrowTexts(const std::list<KorString>& texts) {
    QStringList result;
    for (const KorString& text : texts) result << narrowText(text);
    return result;
}

bool openForReading(const KorString& path, QFile& file) {
    const platform::Descriptor descriptor =
        platform::open(path.c_str(), platform::open_flag::readOnly | platform::open_flag::binary);
    if (descriptor < 0) return false;
    if (file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) return true;
    platform::close(descriptor);
    return false;
}
