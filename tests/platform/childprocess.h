// SPDX-License-Identifier: Apache-2.0
// A child process of the tests, talked to by lines.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <string>

namespace platform::test {

class ChildProcess {
public:
    static constexpr int patienceMs = 20'000;

    explicit ChildProcess(const QStringList& arguments,
                          const QString& program = QStringLiteral(CHILD_PROGRAM)) {
        process.start(program, arguments);
    }
    ~ChildProcess() { kill(); }

    /// Its next line, without the end; empty when it says nothing more.
    std::string line() {
        while (!process.canReadLine() && process.waitForReadyRead(patienceMs)) {
        }
        return process.readLine().trimmed().toStdString();
    }
    /// Waits for its end. -1 when it crashed or doesn't end.
    int exitCode() {
        if (process.state() != QProcess::NotRunning && !process.waitForFinished(patienceMs)) {
            return -1;
        }
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    bool endsWithin(int milliseconds) { return process.waitForFinished(milliseconds); }
    std::string errors() { return process.readAllStandardError().toStdString(); }
    std::uint32_t id() const { return static_cast<std::uint32_t>(process.processId()); }
    void kill() {
        process.kill();
        process.waitForFinished(patienceMs);
    }

private:
    QProcess process;
};

} // namespace platform::test
