// SPDX-License-Identifier: Apache-2.0
// The files of frame traces, whose drive is a directory of the test's where drives can be chosen.
#pragma once

#include "platform/file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace testsupport {

class TraceFiles {
public:
    TraceFiles() {
        qputenv("ZEL_DRIVE_C", QFile::encodeName(drive.path()));
        folder = QString::fromStdU16String(platform::nativePath(u"C:\\Temp"));
        QDir().mkpath(folder);
        remove();
    }
    TraceFiles(const TraceFiles&) = delete;
    TraceFiles& operator=(const TraceFiles&) = delete;
    ~TraceFiles() {
        remove();
        QDir().rmdir(folder);
        qunsetenv("ZEL_DRIVE_C");
    }

    /// What is in the one for "Read" or "Send".
    QByteArray content(const char* which) const {
        QFile file(path(which));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir drive;
    QString folder;

private:
    QString path(const char* which) const {
        return folder + QStringLiteral("/CADImportClientControl") + QLatin1String(which) +
               QStringLiteral("Trace.xml");
    }
    void remove() const {
        for (const char* which : {"Read", "Send"}) QFile::remove(path(which));
    }
};

} // namespace testsupport
