// SPDX-License-Identifier: Apache-2.0
// STEP files, kept in the unit that they declare.
#include "server/failure.h"
#include "server/reading/facerescue.h"
#include "server/reading/lengthunit.h"
#include "server/reading/modelreader.h"
#include "server/reading/transferlosses.h"
#include "server/stopwatch.h"

#include <STEPControl_Reader.hxx>
#include <TColStd_SequenceOfAsciiString.hxx>

namespace server {
namespace {

void load(STEPControl_Reader& reader, const Reading& reading) {
    reading.progress.enter("reading the file", 0, 20);
    const Stopwatch watch(reading.report, "read");
    // A transfer after a failed load would crash.
    if (reader.ReadFile(reading.path.c_str()) != IFSelect_RetDone) {
        throw Failure(ExitCode::unreadable, "the file can't be read as STEP");
    }
    reportLoadFailures(reader, reading.report);
}

const LengthUnit& unitOf(STEPControl_Reader& reader, Report& report) {
    TColStd_SequenceOfAsciiString lengths, angles, solidAngles;
    reader.FileUnits(lengths, angles, solidAngles);
    const std::string name = lengths.IsEmpty() ? "" : lengths.First().ToCString();
    for (const TCollection_AsciiString& other : lengths) {
        if (name == other.ToCString()) continue;
        report.converted({"unit", 0, other.ToCString(), name, "the file mixes units of length"});
    }
    return settleUnit(findLengthUnit(name), name, report);
}

class StepReader : public ModelReader {
public:
    TopoDS_Shape read(const Reading& reading) const override {
        reading.report.format = "STEP";
        STEPControl_Reader reader;
        load(reader, reading);
        const KernelUnit kept(unitOf(reader, reading.report));
        reading.progress.enter("transferring entities", 20, 50);
        const Stopwatch watch(reading.report, "transfer");
        if (reader.NbRootsForTransfer() == 0) return {};
        const Handle(KernelProgress) progress = new KernelProgress(reading.progress);
        reader.TransferRoots(progress->Start());
        rescueFaces(reader, reading.report);
        reportTransferFailures(reader, reading.report);
        return reader.OneShape();
    }
};

} // namespace

std::unique_ptr<ModelReader> makeStepReader() { return std::make_unique<StepReader>(); }

} // namespace server
