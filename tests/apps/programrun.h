// SPDX-License-Identifier: Apache-2.0
// Runs a program to its end. How the lines that it prints end is the system's affair.
#pragma once

#include <QProcess>

#include <gtest/gtest.h>

#include <string>

namespace apps {

constexpr int limitMs = 60000;

inline std::string plainText(const QByteArray& bytes) {
    std::string text = bytes.toStdString();
    std::erase(text, '\r');
    return text;
}

struct ProgramResult {
    int status = -1;
    std::string output, errors;

    bool says(const std::string& text) const { return errors.find(text) != errors.npos; }
};

inline ProgramResult finish(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished(limitMs));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), plainText(process.readAllStandardOutput()),
            plainText(process.readAllStandardError())};
}

inline ProgramResult runProgram(const char* program, const QStringList& words) {
    QProcess process;
    process.start(program, words);
    return finish(process);
}

} // namespace apps
