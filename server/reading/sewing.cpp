// SPDX-License-Identifier: Apache-2.0
// Sews in a copy of the process, which sends the shells in the kernel's binary form.
#include "server/reading/sewing.h"

#include "platform/processcopy.h"

#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepLib.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <BinTools.hxx>
#include <ShapeAnalysis_ShapeTolerance.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Solid.hxx>

#include <algorithm>
#include <sstream>
#include <string>

namespace server {
namespace {

using Shapes = std::vector<TopoDS_Shape>;
using Shells = std::vector<TopoDS_Shell>;

/// A sewn shell may come out inside out; whether it does is known only when it closes.
TopoDS_Shell turnedOutward(const TopoDS_Shell& shell) {
    if (!BRep_Tool::IsClosed(shell)) return shell;
    TopoDS_Solid solid;
    BRep_Builder builder;
    builder.MakeSolid(solid);
    builder.Add(solid, shell);
    BRepLib::OrientClosedSolid(solid);
    return TopoDS::Shell(TopExp_Explorer(solid, TopAbs_SHELL).Current());
}

TopoDS_Shell shellAround(const TopoDS_Shape& face) {
    TopoDS_Shell shell;
    BRep_Builder builder;
    builder.MakeShell(shell);
    builder.Add(shell, face);
    return shell;
}

struct Sewn {
    TopoDS_Shape shape;
    int freeEdges = 0;
};

Sewn sew(const Shapes& faces, double tolerance) {
    BRepBuilderAPI_Sewing sewing(tolerance);
    for (const TopoDS_Shape& face : faces) sewing.Add(face);
    sewing.Perform();
    return {sewing.SewedShape(), sewing.NbFreeEdges()};
}

/// Faces that don't close are tried again at the tolerance that the file itself needed.
TopoDS_Shape sewnTogether(const Shapes& faces, double tolerance) {
    const Sewn first = sew(faces, tolerance);
    double greatest = 0.0;
    for (const TopoDS_Shape& face : faces) {
        greatest = std::max(greatest, ShapeAnalysis_ShapeTolerance().Tolerance(face, 1));
    }
    if (first.freeEdges == 0 || 2.0 * greatest <= tolerance) return first.shape;
    const Sewn second = sew(faces, 2.0 * greatest);
    return second.freeEdges == 0 ? second.shape : first.shape;
}

Shells shellsOf(const TopoDS_Shape& shape) {
    Shells shells;
    for (TopExp_Explorer walk(shape, TopAbs_SHELL); walk.More(); walk.Next()) {
        shells.push_back(TopoDS::Shell(walk.Current()));
    }
    return shells;
}

/// Every face in a shell, closed ones outward.
TopoDS_Compound sewnCompound(const Shapes& faces, double tolerance) {
    const TopoDS_Shape sewn = sewnTogether(faces, tolerance);
    TopoDS_Compound all;
    BRep_Builder builder;
    builder.MakeCompound(all);
    for (const TopoDS_Shell& shell : shellsOf(sewn)) builder.Add(all, turnedOutward(shell));
    for (TopExp_Explorer walk(sewn, TopAbs_FACE, TopAbs_SHELL); walk.More(); walk.Next()) {
        builder.Add(all, shellAround(walk.Current()));
    }
    return all;
}

std::string kernelReason(const Standard_Failure& failure) {
    return std::string("the geometry kernel failed on them: ") + failure.DynamicType()->Name() +
           " " + failure.GetMessageString();
}

/// What a copy sends: the shells behind a blank, or the reason why there are none.
std::string sewnOrReason(const Shapes& faces, double tolerance) {
    try {
        std::ostringstream stream;
        stream << ' ';
        BinTools::Write(sewnCompound(faces, tolerance), stream);
        return stream.str();
    } catch (const Standard_Failure& failure) {
        return kernelReason(failure);
    }
}

/// The reason why there are none, or empty.
std::string takeShells(const std::string& sent, Shells& shells) {
    if (sent.empty() || sent.front() != ' ') return sent;
    TopoDS_Shape sewn;
    std::istringstream stream(sent.substr(1));
    BinTools::Read(sewn, stream);
    shells = shellsOf(sewn);
    return {};
}

std::string sewInCopy(const Shapes& faces, const SewingOptions& options, Shells& shells) {
    std::string bytes;
    const auto work = [&](const platform::TakeBytes& send) {
        const std::string result = sewnOrReason(faces, options.tolerance);
        send(result.data(), result.size());
    };
    const auto receive = [&](const char* more, std::size_t length) { bytes.append(more, length); };
    switch (platform::runInCopy(work, receive, options.processorSeconds)) {
    case platform::CopyEnd::failed:
        return "the geometry kernel crashed on them";
    case platform::CopyEnd::limit:
        return "it took too long";
    case platform::CopyEnd::notOffered:
        work(receive);
        break;
    case platform::CopyEnd::done:
        break;
    }
    return takeShells(bytes, shells);
}

} // namespace

Shells sewnShells(const Shapes& faces, const SewingOptions& options, Report& report) {
    if (faces.size() == 1) return {shellAround(faces.front())};
    Shells shells;
    const std::string count = std::to_string(faces.size()) + " loose faces";
    const std::string reason = sewInCopy(faces, options, shells);
    if (reason.empty()) {
        report.converted(
            {"faces", 0, count, std::to_string(shells.size()) + " shells", "sewn together"});
        return shells;
    }
    report.noted("sewing", 0, count + " stay apart: " + reason);
    for (const TopoDS_Shape& face : faces) shells.push_back(shellAround(face));
    return shells;
}

} // namespace server
