// SPDX-License-Identifier: Apache-2.0
// Stands in for the worker. BRIX_FAKE_REBUILD tells which faces of the first model it dies of, and
// how: "12:crash 13:hang 14:memory 15:garbage". Faces go from 11 to 15, 0 is the picture and 99 the
// end; what is skipped doesn't count.
#include "host/modelling/recordfile.h"
#include "host/rebuild/workerlines.h"

#include <QFile>
#include <QStringList>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

void tell(const host::WorkerLine& line) {
    std::fputs(host::workerLine(line).constData(), stdout);
    std::fflush(stdout);
}

QString fateOf(int face) {
    const QStringList fates = qEnvironmentVariable("BRIX_FAKE_REBUILD").split(' ');
    for (const QString& fate : fates) {
        if (fate.startsWith(QString("%1:").arg(face))) return fate.section(':', 1);
    }
    return {};
}

void meet(const QString& fate) {
    if (fate == "crash") __builtin_trap();
    if (fate == "memory") std::exit(host::workerOutOfMemory);
    if (fate == "quit") std::exit(0);
    if (fate == "slow") std::exit(host::workerOutOfStepTime);
    if (fate == "late") std::exit(host::workerOutOfTime);
    if (fate == "hang") std::this_thread::sleep_for(std::chrono::minutes(5));
    if (fate == "busy") {
        for (int i = 1; i <= 20; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            tell(host::AtWork{1000 * i});
        }
    }
    if (fate == "garbage") {
        for (int i = 0; i < 1000; ++i) std::puts("{\"step\": chatter of the kernel");
    }
}

bool writeText(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write("made by the fake") > 0;
}

} // namespace

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments << argv[i];
    QFile file(arguments.value(0));
    if (!file.open(QIODevice::ReadOnly) || !host::readRecord(file)) {
        return host::workerRecordUnreadable;
    }
    if (qEnvironmentVariable("BRIX_FAKE_REBUILD") == "misuse") return host::workerMisused;
    int built = 0;
    for (int face = 11; face <= 15; ++face) {
        const host::Step step{1, "face", face};
        if (arguments.contains(host::stepArgument(step))) continue;
        tell(step);
        meet(fateOf(face));
        ++built;
    }
    tell(host::DroppedRecord{"edge", 5, "the fake does not like it"});
    host::RebuiltModel model;
    model.faces = built;
    tell(model);
    const int picture = static_cast<int>(arguments.indexOf("--picture"));
    if (picture > 0) {
        tell(host::Step{0, "picture", 0});
        meet(fateOf(0));
        if (writeText(arguments.value(picture + 1))) tell(host::WrittenFile{true});
    }
    tell(host::WorkDone{});
    meet(fateOf(99));
    return host::workerDone;
}
