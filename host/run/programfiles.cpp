// SPDX-License-Identifier: Apache-2.0
// Looking for the module and the server.
#include "host/run/programfiles.h"

#include "host/text.h"
#include "platform/process.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

namespace host {
namespace {

QString findBeside(const QStringList& folders, const QStringList& names) {
    const QString program = QString::fromStdU16String(platform::executablePath())
                                .replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString here = QFileInfo(program).absolutePath();
    for (const QString& folder : folders) {
        for (const QString& name : names) {
            const QFileInfo file(here + QLatin1Char('/') + folder + name);
            if (file.isFile()) return file.canonicalFilePath();
        }
    }
    return {};
}

} // namespace

QString defaultModule() {
    return findBeside({QString(), QStringLiteral(BRIX_MODULE_FOLDER "/")},
                      {QStringLiteral("brix.so"), QStringLiteral("libbrix.so"),
                       QStringLiteral("brix.dll"), QStringLiteral("libbrix.dll")});
}

QString defaultServer() {
    return findBeside(
        {QString(), QStringLiteral("../libexec/brix/"), QStringLiteral("../libexec/"),
         QStringLiteral("../lib/brix/")},
        {QStringLiteral("cad-importer-server"), QStringLiteral("cad-importer-server.exe")});
}

QString startProblem(const QString& program) {
    if (program.isEmpty()) return QStringLiteral("no program is named");
    if (!program.contains(QLatin1Char('/')) && !program.contains(QLatin1Char('\\'))) {
        const bool found = !QStandardPaths::findExecutable(program).isEmpty();
        return found ? QString() : QStringLiteral("no such program");
    }
    const QFileInfo file(program);
    if (!file.exists()) return QStringLiteral("no such file");
    if (file.isDir()) return QStringLiteral("it is a directory");
    return file.isExecutable() ? QString() : QStringLiteral("it isn't executable");
}

} // namespace host
