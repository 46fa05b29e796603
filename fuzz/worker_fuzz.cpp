// SPDX-License-Identifier: Apache-2.0
// Lines of the worker: what one says, it says again when it is written anew; and a step as an
// argument.
#include "fuzz/input.h"
#include "host/rebuild/workerlines.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::string line = input.line();
    const QByteArray told = workerLine(host::parseWorkerLine(QByteArray::fromStdString(line)));
    require(workerLine(host::parseWorkerLine(told)) == told, "says something else");
    require(told.count('\n') == 1 && told.endsWith('\n'), "no single line");
    if (const auto step = host::parseStepArgument(QString::fromStdString(line))) {
        const auto again = host::parseStepArgument(host::stepArgument(*step));
        require(again && again->model == step->model && again->what == step->what &&
                    again->identifier == step->identifier,
                "another step");
    }
    return 0;
}
