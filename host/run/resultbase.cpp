// SPDX-License-Identifier: Apache-2.0
// A file that refuses other openers, with the number of its process in it.
#include "host/run/resultbase.h"

#include "platform/clock.h"

#include <QFile>
#include <QFileInfo>

#include <string>

namespace host {
namespace {

namespace flag = platform::open_flag;

/// Between the opening and the locking of a file its holder may have removed it.
platform::Descriptor lockFile(const QString& file) {
    constexpr int tries = 3;
    constexpr auto flags = flag::readWrite | flag::create | flag::truncate | flag::temporary;
    const std::u16string path = file.toStdU16String();
    for (int i = 0; i < tries; ++i) {
        const platform::Descriptor lock =
            platform::open(path.c_str(), flags, platform::share::denyReadWrite);
        if (lock < 0 || QFile::exists(file)) return lock;
        platform::close(lock);
    }
    return -1;
}

/// Where the system lets nobody read a file that is locked, the holder has no number.
QString holderOf(const QString& file) {
    QFile lock(file);
    const QByteArray number =
        lock.open(QIODevice::ReadOnly) ? lock.readAll().trimmed() : QByteArray();
    return number.isEmpty() ? QStringLiteral("another import")
                            : QStringLiteral("process ") + QString::fromLatin1(number);
}

} // namespace

QString ResultBase::take(const QString& base, bool isWritten) {
    const QString file = base + QStringLiteral(".lock");
    lock_ = lockFile(file);
    if (lock_ < 0 && platform::lastError() == platform::Error::busy) {
        return base + QStringLiteral(" is in use by ") + holderOf(file);
    }
    if (lock_ < 0 && isWritten) return QStringLiteral("no results can be written at ") + base;
    if (lock_ < 0) return {};
    const std::string number = std::to_string(platform::processId()) + '\n';
    platform::write(lock_, number.data(), number.size());
    return {};
}

ResultBase::~ResultBase() {
    if (lock_ >= 0) platform::close(lock_);
}

void removeHalfMade(const QString& base) {
    for (const char* ending : {".direct", ".igs", ".report.json"}) {
        const QFileInfo file(base + QLatin1String(ending) + QStringLiteral(".partial"));
        if (file.isFile()) QFile::remove(file.filePath());
    }
}

} // namespace host
