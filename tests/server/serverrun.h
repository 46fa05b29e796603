// SPDX-License-Identifier: Apache-2.0
// Runs the server as a process in a folder of its own.
#pragma once

#include "tests/support/folder.h"

#include <QProcess>

namespace server::testing {

inline const QString bracket = QStringLiteral(BRACKET_FILE);

class ServerRun : public ::testing::Test {
protected:
    ~ServerRun() override {
        process_.kill();
        process_.waitForFinished(10'000);
    }

    void start(const QStringList& words) {
        process_.start(QStringLiteral(SERVER_PROGRAM), words);
        ASSERT_TRUE(process_.waitForStarted(30'000));
    }
    /// What an import of the file is told first. Its results begin with "out".
    QStringList importing(const QString& file) const {
        return {"-InputFile", file, "-OutputBaseName", folder_.path("out")};
    }
    /// The exit code; -1 when it didn't end by itself.
    int wait() {
        if (!process_.waitForFinished(60'000)) process_.kill();
        errors_ = QString::fromUtf8(process_.readAllStandardError());
        return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
    }

    testsupport::Folder folder_;
    QProcess process_;
    QString errors_;
};

} // namespace server::testing
