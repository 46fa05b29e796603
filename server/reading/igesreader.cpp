// SPDX-License-Identifier: Apache-2.0
// IGES files, kept in the unit that they declare.
#include "server/failure.h"
#include "server/reading/lengthunit.h"
#include "server/reading/modelreader.h"
#include "server/reading/transferlosses.h"
#include "server/stopwatch.h"

#include <IGESControl_Reader.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <TCollection_HAsciiString.hxx>

namespace server {
namespace {

void load(IGESControl_Reader& reader, const Reading& reading) {
    reading.progress.enter("reading the file", 0, 20);
    const Stopwatch watch(reading.report, "read");
    if (reader.ReadFile(reading.path.c_str()) != IFSelect_RetDone) {
        throw Failure(ExitCode::unreadable, "the file can't be read as IGES");
    }
    reportLoadFailures(reader, reading.report);
}

/// Flag 3 says that the unit's name counts.
const LengthUnit& unitOf(const IGESControl_Reader& reader, Report& report) {
    const IGESData_GlobalSection& global = reader.IGESModel()->GlobalSection();
    const Handle(TCollection_HAsciiString) written = global.UnitName();
    const std::string name = written.IsNull() ? "" : written->ToCString();
    const LengthUnit* unit =
        global.UnitFlag() == 3 ? findLengthUnit(name) : findLengthUnit(global.UnitFlag());
    return settleUnit(unit, name, report);
}

class IgesReader : public ModelReader {
public:
    TopoDS_Shape read(const Reading& reading) const override {
        reading.report.format = "IGES";
        IGESControl_Reader reader;
        load(reader, reading);
        const LengthUnit& unit = unitOf(reader, reading.report);
        const KernelUnit kept(unit);
        // The model has taken the kernel's unit when it was loaded.
        reader.IGESModel()->ChangeGlobalSection().SetCascadeUnit(unit.millimetres);
        reading.progress.enter("transferring entities", 20, 50);
        const Stopwatch watch(reading.report, "transfer");
        if (reader.NbRootsForTransfer() == 0) return {};
        const Handle(KernelProgress) progress = new KernelProgress(reading.progress);
        reader.TransferRoots(progress->Start());
        reportTransferFailures(reader, reading.report);
        return reader.OneShape();
    }
};

} // namespace

std::unique_ptr<ModelReader> makeIgesReader() { return std::make_unique<IgesReader>(); }

} // namespace server
