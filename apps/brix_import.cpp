// SPDX-License-Identifier: Apache-2.0
// brix-import: imports a CAD file through the component and reports what came.
#include "apps/importcommand.h"
#include "host/run/importrun.h"
#include "host/run/interrupts.h"
#include "host/run/outputfile.h"
#include "host/run/report.h"
#include "platform/channels.h"
#include "platform/process.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdint>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

/// The first file that can't be written, and why; empty when all can. Asked before the work.
std::string writeProblem(const apps::ImportCommand& command) {
    const host::ImportOptions& options = command.options;
    const struct {
        const QString& file;
        bool isDeviceFine;
    } outputs[] = {{command.jsonFile, true},
                   {options.traceFile, true},
                   {options.picture, false},
                   {options.exportFile, false}};
    for (const auto& output : outputs) {
        if (output.file.isEmpty()) continue;
        const QString problem = host::writeProblem(output.file, output.isDeviceFine);
        if (!problem.isEmpty()) {
            return output.file.toStdString() + " can't be written: " + problem.toStdString();
        }
    }
    return {};
}

/// False when the report can't be written. A reader that has gone had what it wanted. What it would
/// have told is told as a table then.
bool writeReport(const apps::ImportCommand& command, const host::RunOutcome& outcome) {
    const std::string report =
        command.json ? host::jsonReport(outcome) : host::tableReport(outcome);
    bool isWritten = false;
    if (command.jsonFile.isEmpty()) {
        isWritten = std::cout << report << std::flush || !platform::isOutputRead();
    } else {
        isWritten = host::writeWhole(command.jsonFile, report);
    }
    if (!isWritten) {
        const QString where =
            command.jsonFile.isEmpty() ? QStringLiteral("standard output") : command.jsonFile;
        std::cerr << "brix-import: the report can't be written: " << where.toStdString() << '\n'
                  << host::tableReport(outcome) << std::flush;
    }
    return isWritten;
}

/// A line of the user's; nothing at the end of the input or at an interrupt.
std::optional<std::string> askTerminal() {
    constexpr std::uint32_t turnMs = 50;
    while (std::cin.rdbuf()->in_avail() <= 0 && !platform::waitForInput(turnMs)) {
        if (host::interruptCount() > 0) return {};
    }
    std::string line;
    return std::getline(std::cin, line) ? std::optional(line) : std::nullopt;
}

int run(const apps::ImportCommand& command) {
    const std::string problem = writeProblem(command);
    if (!problem.empty()) {
        std::cerr << "brix-import: " << problem << std::endl;
        return static_cast<int>(host::ExitStatus::wrongUse);
    }
    const host::RunSurroundings surroundings{
        std::cerr, platform::isInputTerminal() ? host::LineReader(askTerminal) : nullptr};
    const host::RunOutcome outcome = host::runImport(command.options, surroundings);
    const host::ExitStatus status = host::exitStatus(outcome);
    if (!outcome.reason.empty()) std::cerr << "brix-import: " << outcome.reason << std::endl;
    if (status == host::ExitStatus::wrongUse) return static_cast<int>(status);
    const bool written = writeReport(command, outcome);
    return static_cast<int>(written ? status : host::ExitStatus::wrongUse);
}

} // namespace

int main(int argc, char** argv) {
    platform::prepareChannels();
    // Before Qt takes its own words out.
    const std::vector<std::string> words = platform::commandLine(argc, argv);
    const QCoreApplication application(argc, argv);
    // Qt adopts the user's locale; numbers of our own output keep the point.
    std::setlocale(LC_NUMERIC, "C");
    const apps::ParsedCommand parsed = apps::parseImportCommand(words);
    if (!parsed.command) return parsed.exitStatus;
    try {
        host::countInterrupts();
        return run(*parsed.command);
    } catch (const std::exception& error) {
        std::cerr << "brix-import: " << error.what() << std::endl;
        return static_cast<int>(host::ExitStatus::unusable);
    }
}
