// SPDX-License-Identifier: Apache-2.0
// Reading the server's report.
#include "host/run/serverreport.h"

#include <QFile>
#include <QFileInfo>

namespace host {

ServerReportFile::ServerReportFile(const QString& outputBase)
    : path_(outputBase + QStringLiteral(".report.json")), before_(QFileInfo(path_).lastModified()) {
}

nlohmann::ordered_json ServerReportFile::read() const {
    QFile file(path_);
    if (QFileInfo(path_).lastModified() == before_ || !file.open(QIODevice::ReadOnly)) return {};
    const QByteArray text = file.readAll();
    auto report = nlohmann::ordered_json::parse(text.begin(), text.end(), nullptr, false);
    return report.is_discarded() ? nlohmann::ordered_json() : report;
}

} // namespace host
