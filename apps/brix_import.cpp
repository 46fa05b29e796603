// SPDX-License-Identifier: Apache-2.0
// brix-import: imports a CAD file through the component and reports what came.
#include "apps/importcommand.h"
#include "host/run/importrun.h"
#include "host/run/interrupts.h"
#include "host/run/report.h"
#include "platform/process.h"

#include <QCoreApplication>
#include <QFile>

#include <clocale>
#include <iostream>

namespace {

bool writeFile(const QString& fileName, const std::string& text) {
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(text.data(), static_cast<qint64>(text.size())) ==
               static_cast<qint64>(text.size()) &&
           file.flush();
}

/// False when the report can't be written.
bool writeReport(const apps::ImportCommand& command, const host::RunOutcome& outcome) {
    if (!command.json) {
        std::cout << host::tableReport(outcome) << std::flush;
    } else if (command.jsonFile.isEmpty()) {
        std::cout << host::jsonReport(outcome) << std::flush;
    } else if (!writeFile(command.jsonFile, host::jsonReport(outcome))) {
        std::cerr << "brix-import: the report can't be written: " << command.jsonFile.toStdString()
                  << std::endl;
        return false;
    }
    return std::cout.good();
}

int run(const apps::ImportCommand& command) {
    const host::RunSurroundings surroundings{std::cerr,
                                             platform::isInputTerminal() ? &std::cin : nullptr};
    const host::RunOutcome outcome = host::runImport(command.options, surroundings);
    const host::ExitStatus status = host::exitStatus(outcome);
    if (!outcome.reason.empty()) std::cerr << "brix-import: " << outcome.reason << std::endl;
    if (status == host::ExitStatus::wrongUse) return static_cast<int>(status);
    const bool written = writeReport(command, outcome);
    return static_cast<int>(written ? status : host::ExitStatus::wrongUse);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    // Qt adopts the user's locale; numbers of our own output keep the point.
    std::setlocale(LC_NUMERIC, "C");
    const apps::ParsedCommand parsed = apps::parseImportCommand(application.arguments());
    if (!parsed.command) return parsed.exitStatus;
    try {
        host::countInterrupts();
        return run(*parsed.command);
    } catch (const std::exception& error) {
        std::cerr << "brix-import: " << error.what() << std::endl;
        return static_cast<int>(host::ExitStatus::unusable);
    }
}
