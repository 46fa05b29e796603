// SPDX-License-Identifier: Apache-2.0
// The kernel's IGES writer, with solids as boundary representations.
#include "server/writing/igesexport.h"

#include "server/failure.h"

#include <IGESControl_Controller.hxx>
#include <IGESControl_Writer.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Static.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>

namespace server {
namespace {

constexpr int asBoundaryRepresentation = 1;

/// IGES names the inch "IN" where the kernel's setting says "INCH".
std::string igesName(const LengthUnit& unit) {
    const std::string name = unit.kernelName;
    return name == "INCH" ? "IN" : name;
}

/// One by one: for each piece of a compound the kernel goes through all that it has made of the
/// compound so far, which takes most of the time from some thousand faces on.
void addPieces(const TopoDS_Shape& shape, IGESControl_Writer& writer) {
    bool isWhole = false;
    TopAbs_ShapeEnum above = TopAbs_SHAPE;
    for (const auto kind :
         {TopAbs_SOLID, TopAbs_SHELL, TopAbs_FACE, TopAbs_WIRE, TopAbs_EDGE, TopAbs_VERTEX}) {
        for (TopExp_Explorer walk(shape, kind, above); walk.More(); walk.Next()) {
            if (!writer.AddShape(walk.Current())) {
                throw Standard_Failure("a part of the shape has no IGES form");
            }
            isWhole = true;
        }
        above = kind;
    }
    if (!isWhole) throw Standard_Failure("the shape has no IGES form");
}

} // namespace

void exportIges(const TopoDS_Shape& shape, const LengthUnit& unit, const std::string& path) {
    IGESControl_Controller::Init();
    const KernelUnit kept(unit);
    Interface_Static::SetCVal("write.iges.header.author", "");
    Interface_Static::SetCVal("write.iges.header.company", "");
    IGESControl_Writer writer(igesName(unit).c_str(), asBoundaryRepresentation);
    writer.Model()->ChangeGlobalSection().SetCascadeUnit(unit.millimetres);
    addPieces(shape, writer);
    writer.ComputeModel();
    if (!writer.Write(path.c_str())) {
        throw Failure(ExitCode::unwritable, path + " can't be written");
    }
}

} // namespace server
