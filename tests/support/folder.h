// SPDX-License-Identifier: Apache-2.0
// A directory that goes with the test, for tests that speak to Qt.
#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace testsupport {

class Folder {
public:
    QString path() const { return directory_.path(); }
    QString path(const QString& name) const { return directory_.filePath(name); }
    /// Leaves a file of that content and gives its path.
    QString write(const QString& name, const QByteArray& content = {}) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        file.write(content);
        return file.fileName();
    }
    /// Empty where there is no file.
    QByteArray read(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool has(const QString& name) const { return QFile::exists(path(name)); }

private:
    QTemporaryDir directory_;
};

} // namespace testsupport
