// SPDX-License-Identifier: Apache-2.0
// Translations from a file.
#include "host/services/translatorservice.h"

#include "component/objects/queryinterface.h"
#include "host/text.h"

#include <QFile>

namespace host {
namespace {

QString unescaped(const QString& text) {
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        QChar c = text[i];
        if (c == QLatin1Char('\\') && i + 1 < text.size()) {
            c = text[++i];
            if (c == QLatin1Char('n')) c = QLatin1Char('\n');
            if (c == QLatin1Char('t')) c = QLatin1Char('\t');
        }
        result += c;
    }
    return result;
}

} // namespace

bool FileTranslator::load(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const auto tab = line.indexOf(QLatin1Char('\t'));
        if (tab < 0 || line.startsWith(QLatin1Char('#'))) continue;
        texts_[unescaped(line.left(tab)).toStdString()] = toKorString(unescaped(line.mid(tab + 1)));
    }
    return true;
}

void FileTranslator::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelTranslator>(this, className(), name, result);
}

bool FileTranslator::lookup(const char* key, KorString& out) {
    const auto found = key ? texts_.find(key) : texts_.end();
    if (found == texts_.end()) return ZelTrivialTranslator::lookup(key, out);
    out = found->second;
    return true;
}

void TranslatorService::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelTranslatorService>(this, className(), name, result);
}

IZelTranslator* TranslatorService::translatorFor(const ZelGuid*) { return translator_.iface; }

} // namespace host
