// SPDX-License-Identifier: Apache-2.0
// Runs brix-import as a process, with a directory of its own for temporary files.
#pragma once

#include "platform/process.h"
#include "tests/apps/plaintext.h"
#include "tests/support/temporaryvariables.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace apps {

using Json = nlohmann::json;

constexpr int limitMs = 60000;

struct ImportResult {
    int status = -1;
    std::string output, errors;

    Json json() const { return Json::parse(output, nullptr, false); }
    bool says(const std::string& text) const { return errors.find(text) != std::string::npos; }
};

class BrixImportTest : public testing::Test {
protected:
    BrixImportTest() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* variable : testsupport::temporaryVariables) {
            environment.insert(variable, temporary.path());
        }
        process.setProcessEnvironment(environment);
        process.setStandardInputFile(QProcess::nullDevice());
    }

    void start(const QStringList& words) { process.start(BRIX_IMPORT, words); }
    ImportResult finish() {
        EXPECT_TRUE(process.waitForFinished(limitMs));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), plainText(process.readAllStandardOutput()),
                plainText(process.readAllStandardError())};
    }
    ImportResult run(const QStringList& words) {
        start(words);
        return finish();
    }
    /// Starts a run, waits for its first words and asks it to stop.
    ImportResult interrupt(const QStringList& words) {
        start(words);
        EXPECT_TRUE(process.waitForStarted());
        process.setReadChannel(QProcess::StandardError);
        EXPECT_TRUE(process.waitForReadyRead(limitMs));
        platform::terminateChildren();
        return finish();
    }
    /// The temporary files that are still there.
    QStringList leftBehind() const {
        return QDir(temporary.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    QTemporaryDir temporary;
    QTemporaryDir directory;
    QProcess process;
};

} // namespace apps
