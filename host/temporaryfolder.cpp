// SPDX-License-Identifier: Apache-2.0
// Names "brix-NUMBER-START-XXXXXX" in the folder that the system keeps for temporary files.
#include "host/temporaryfolder.h"

#include "platform/clock.h"
#include "platform/process.h"

#include <QDir>
#include <QFileInfo>

namespace host {
namespace {

namespace flag = platform::open_flag;

/// The system's folder when it is one; a name that leads nowhere comes out empty or as it is.
QString systemFolder() {
    const QString path = QDir::tempPath();
    return !path.isEmpty() && QFileInfo(path).isDir() ? path : QString();
}

QString nameTemplate() {
    const QString folder = systemFolder();
    const std::string mark = platform::processMark(platform::processId());
    // A name that can't be: whatever Qt makes of an empty one lies somewhere else.
    if (folder.isEmpty()) return QStringLiteral("/no/such/folder/XXXXXX");
    return folder + QStringLiteral("/brix-") + QString::fromStdString(mark) +
           QStringLiteral("-XXXXXX");
}

platform::Descriptor hold(const QString& folder, std::int32_t flags) {
    const std::u16string file = (folder + QStringLiteral("/held")).toStdU16String();
    return platform::open(file.c_str(), flag::readWrite | flags, platform::share::denyReadWrite);
}

/// False too for one whose process died before it could hold it.
bool isHeld(const QString& folder) {
    const platform::Descriptor file = hold(folder, 0);
    if (file >= 0) platform::close(file);
    return file < 0 && platform::lastError() == platform::Error::busy;
}

/// "brix-NUMBER-START-XXXXXX" gives "NUMBER-START".
std::string markIn(const QString& name) {
    return name.section(QLatin1Char('-'), 1, 2).toStdString();
}

void removeLeftOvers(const QFileInfo& own) {
    const QDir folder(own.absolutePath());
    const auto found = folder.entryInfoList({QStringLiteral("brix-*-*-*")},
                                            QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : found) {
        const bool isOurs = entry.ownerId() == own.ownerId() && !entry.isSymLink();
        if (!isOurs || platform::isMarkAlive(markIn(entry.fileName()))) continue;
        if (!isHeld(entry.filePath())) QDir(entry.filePath()).removeRecursively();
    }
}

} // namespace

TemporaryFolder::TemporaryFolder() : folder_(nameTemplate()) {
    if (!folder_.isValid()) return;
    hold_ = hold(folder_.path(), flag::create);
    removeLeftOvers(QFileInfo(folder_.path()));
}

/// Closed first: a file that is open can't be removed on every system.
TemporaryFolder::~TemporaryFolder() {
    if (hold_ >= 0) platform::close(hold_);
}

QString TemporaryFolder::problem() const {
    if (folder_.isValid()) return {};
    return systemFolder().isEmpty() ? QStringLiteral("there is no folder for temporary files")
                                    : QStringLiteral("no temporary folder can be made");
}

} // namespace host
