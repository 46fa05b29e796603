// SPDX-License-Identifier: Apache-2.0
// The kernel's own text form. It knows no units.
#include "server/failure.h"
#include "server/reading/lengthunit.h"
#include "server/reading/modelreader.h"
#include "server/stopwatch.h"

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>

namespace server {
namespace {

class BrepReader : public ModelReader {
public:
    TopoDS_Shape read(const Reading& reading) const override {
        reading.report.format = "BREP";
        settleUnit(nullptr, "", reading.report);
        reading.progress.enter("reading the file", 0, 50);
        const Stopwatch watch(reading.report, "read");
        const Handle(KernelProgress) progress = new KernelProgress(reading.progress);
        TopoDS_Shape shape;
        if (!BRepTools::Read(shape, reading.path.c_str(), BRep_Builder(), progress->Start())) {
            throw Failure(ExitCode::unreadable, "the file can't be read as BREP");
        }
        return shape;
    }
};

} // namespace

std::unique_ptr<ModelReader> makeBrepReader() { return std::make_unique<BrepReader>(); }

} // namespace server
