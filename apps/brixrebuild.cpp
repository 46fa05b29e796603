// SPDX-License-Identifier: Apache-2.0
// The worker that holds the geometry kernel: reads a record, builds its solids and says on its
// standard output what it is at and what came of it.
#include "host/modelling/recordfile.h"
#include "host/rebuild/processorlimit.h"
#include "host/rebuild/workerlines.h"
#include "host/shape/rebuilding.h"
#include "platform/channels.h"
#include "platform/process.h"

#include <CLI/CLI.hpp>
#include <QFile>

#include <cstdio>
#include <iostream>

namespace {

struct Arguments {
    std::string record;
    host::RebuildingOrder order;
    std::string size = "1024x768";
    std::vector<std::string> skipped;
    std::uint64_t memoryBytes = 0;
    std::int64_t timeMs = 0, stepTimeMs = 0;
};

/// A line is written as one, whichever thread tells it.
void tell(const host::WorkerLine& line) {
    const QByteArray bytes = host::workerLine(line);
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void describe(CLI::App& app, Arguments& arguments) {
    app.add_option("RECORD", arguments.record, "The record file")->required();
    app.add_option("--picture", arguments.order.picture, "Write a picture (PNG)")
        ->type_name("FILE");
    app.add_option("--size", arguments.size, "Of the picture, in pixels; default: 1024x768")
        ->type_name("WIDTHxHEIGHT");
    app.add_option("--export", arguments.order.exportFile, "Write .brep, .step, .stl or .glb")
        ->type_name("FILE");
    app.add_option("--skip", arguments.skipped, "Leave a step out, such as 1/face/12; repeatable")
        ->type_name("MODEL/WHAT/IDENTIFIER")
        ->allow_extra_args(false);
    app.add_flag("--measures", arguments.order.tellsMeasures, "Tell what each face measures");
    app.add_option("--memory", arguments.memoryBytes, "Use at most so many bytes; 0: no limit")
        ->type_name("BYTES");
    app.add_option("--time", arguments.timeMs,
                   "Use at most so many milliseconds of processor time; 0: no limit")
        ->type_name("MILLISECONDS");
    app.add_option("--step-time", arguments.stepTimeMs, "The same for one step")
        ->type_name("MILLISECONDS");
}

/// The size and the skipped steps, which are texts so far; false when one of them isn't any.
bool complete(Arguments& arguments) {
    host::RebuildingOrder& order = arguments.order;
    char rest = 0;
    if (std::sscanf(arguments.size.c_str(), "%6dx%6d%c", &order.pictureWidth, &order.pictureHeight,
                    &rest) != 2) {
        return false;
    }
    for (const std::string& text : arguments.skipped) {
        const auto step = host::parseStepArgument(QString::fromStdString(text));
        if (!step) return false;
        order.skipped.insert(*step);
    }
    return true;
}

int work(const Arguments& arguments) {
    host::ProcessorLimit limit(arguments.timeMs, arguments.stepTimeMs,
                               [](std::int64_t ms) { tell(host::AtWork{ms}); });
    tell(host::Step{0, "record", 0});
    QFile file(QString::fromStdString(arguments.record));
    if (!file.open(QIODevice::ReadOnly)) return host::workerRecordUnreadable;
    const auto record = host::readRecord(file);
    if (!record) return host::workerRecordUnreadable;
    host::rebuildHere(*record, arguments.order, [&limit](const host::WorkerLine& line) {
        if (std::holds_alternative<host::Step>(line)) limit.stepBegun();
        tell(line);
    });
    return host::workerDone;
}

} // namespace

int main(int argc, char** argv) {
    platform::prepareChannels();
    platform::onParentDeath([] { platform::exitNow(host::workerOrphaned); });
    Arguments arguments;
    CLI::App app("Builds the solids of a record; brix-import runs it", "brix-rebuild");
    app.set_version_flag("--version", "brix-rebuild " BRIX_VERSION);
    describe(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? host::workerDone : host::workerMisused;
    }
    if (!complete(arguments)) {
        std::cerr << "brix-rebuild: the size or a step to skip is malformed\n";
        return host::workerMisused;
    }
    if (arguments.memoryBytes) platform::limitMemory(arguments.memoryBytes);
    try {
        return work(arguments);
    } catch (const std::bad_alloc&) {
        return host::workerOutOfMemory;
    } catch (const std::exception& failure) {
        std::cerr << "brix-rebuild: " << failure.what() << '\n';
        return host::workerCrashed;
    }
}
