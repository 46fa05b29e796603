// SPDX-License-Identifier: Apache-2.0
// Runs brix-import as a process, with a directory of its own for temporary files.
#pragma once

#include "platform/process.h"
#include "tests/apps/programrun.h"
#include "tests/support/folder.h"
#include "tests/support/temporaryvariables.h"

#include <QDir>
#include <QProcess>

#include <nlohmann/json.hpp>

namespace apps {

using Json = nlohmann::json;

struct ImportResult : ProgramResult {
    Json json() const { return Json::parse(output, nullptr, false); }
};

class BrixImportTest : public testing::Test {
protected:
    BrixImportTest() {
        process.setProcessEnvironment(environment());
        process.setStandardInputFile(QProcess::nullDevice());
    }

    QProcessEnvironment environment() const {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const char* name : testsupport::temporaryVariables) {
            variables.insert(name, temporary.path());
        }
        return variables;
    }
    void start(const QStringList& words) { process.start(BRIX_IMPORT, words); }
    ImportResult run(const QStringList& words) {
        start(words);
        return {finish(process)};
    }
    /// Starts a run, waits for its first words and asks it to stop.
    ImportResult interrupt(const QStringList& words) {
        start(words);
        EXPECT_TRUE(process.waitForStarted());
        process.setReadChannel(QProcess::StandardError);
        EXPECT_TRUE(process.waitForReadyRead(limitMs));
        platform::endProcess(static_cast<std::uint32_t>(process.processId()));
        return {finish(process)};
    }
    /// The temporary files that are still there.
    QStringList leftBehind() const {
        return QDir(temporary.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    /// The words of a run with the component and a server that does what `deeds` say.
    QStringList serving(const QStringList& deeds) const {
        QStringList words{part, "--json", "--server", FAKE_SERVER, "--output-base", base};
        for (const QString& deed : deeds) words << "--argument" << deed;
        return words;
    }
    bool hasModelFile() const { return directory.has("part.direct"); }

    QTemporaryDir temporary;
    testsupport::Folder directory;
    QProcess process;
    const QString base = directory.path("part");
    const QString part = directory.path("part.step"); ///< there where the test writes it
};

} // namespace apps
