// SPDX-License-Identifier: Apache-2.0
// The server's report in the host: whatever JSON it holds, or none, what is made of it can be told.
#include "fuzz/input.h"
#include "host/run/comparison.h"
#include "host/run/serverreport.h"

namespace {

const InputFolder folder;

/// A face and a body of two shells, of which one has a face that wasn't built.
host::ModelRecord record() {
    host::ModelRecord model;
    model.faces[1] = model.faces[2] = {};
    model.shells.resize(2);
    model.shells[0].identifier = 3, model.shells[0].faces = {1};
    model.shells[1].identifier = 4, model.shells[1].faces = {2};
    return model;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const host::ServerReportFile file(QString::fromStdString(folder.file("part")));
    folder.write("part.report.json", Input(data, size).rest());
    const nlohmann::ordered_json report = file.read();
    host::RebuiltModel model;
    model.faceMeasures = {{1, 0.5, 0.25}};
    std::vector<host::DroppedRecord> losses{{"validity", 1, "odd", 1}}, notes;
    host::noteOldFaults(report, losses, notes);
    require(losses.size() + notes.size() == 1, "a loss is lost");
    for (const auto& loss : host::differences(report, record(), model))
        require(!loss.why.empty(), "no reason");
    for (const auto& loss : host::lostOnTheWay(report, {{record()}, {}, {}}))
        require(loss.why.find("did not arrive") != loss.why.npos, "another reason");
    host::failureIn(report);
    return 0;
}
