// SPDX-License-Identifier: Apache-2.0
// Trying and writing files.
#include "host/run/outputfile.h"

#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

namespace host {
namespace {

/// What is there and no file, such as a device or a pipe, is written as it is.
bool isSpecial(const QString& file) {
    const QFileInfo info(file);
    return info.exists() && !info.isFile();
}

template <class File> bool writeInto(File& file, const std::string& text) {
    const auto length = static_cast<qint64>(text.size());
    return file.open(QIODevice::WriteOnly) && file.write(text.data(), length) == length &&
           file.flush();
}

} // namespace

QString writeProblem(const QString& file, bool isDeviceFine) {
    if (QFileInfo(file).isDir()) return QStringLiteral("it is a folder");
    if (isSpecial(file)) {
        const bool isFine = isDeviceFine && QFileInfo(file).isWritable();
        return isFine ? QString() : QStringLiteral("it is no file");
    }
    if (isDeviceFine && QFile::exists(file)) {
        QFile present(file);
        return present.open(QIODevice::ReadWrite) ? QString() : present.errorString();
    }
    // What isn't committed never takes its place.
    QSaveFile trial(file);
    return trial.open(QIODevice::WriteOnly) ? QString() : trial.errorString();
}

bool writeWhole(const QString& file, const std::string& text) {
    if (isSpecial(file)) {
        QFile special(file);
        return writeInto(special, text);
    }
    QSaveFile whole(file);
    whole.setDirectWriteFallback(true);
    return writeInto(whole, text) && whole.commit();
}

bool LateFile::Buffer::isReady() {
    return is_open() || open(std::filesystem::path(file_.toStdU16String()),
                             std::ios::out | std::ios::binary | std::ios::trunc);
}

LateFile::Buffer::int_type LateFile::Buffer::overflow(int_type unit) {
    return isReady() ? std::filebuf::overflow(unit) : traits_type::eof();
}

std::streamsize LateFile::Buffer::xsputn(const char* text, std::streamsize length) {
    return isReady() ? std::filebuf::xsputn(text, length) : 0;
}

} // namespace host
