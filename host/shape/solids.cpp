// SPDX-License-Identifier: Apache-2.0
// Shells are told apart by the sign of their volume and put together by where they lie.
#include "host/shape/solids.h"

#include <BRepBndLib.hxx>
#include <BRepClass3d_SolidClassifier.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Precision.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Solid.hxx>

#include <cmath>
#include <limits>

namespace host {
namespace {

struct ClosedShell {
    TopoDS_Shell shell;
    TopoDS_Solid solid;
    double volume = 0.0;
    Bnd_Box box;
};

ClosedShell closedShell(const MeasuredShell& measured) {
    ClosedShell result;
    result.shell = measured.shell;
    result.shell.Closed(true);
    result.volume = measured.volume;
    BRep_Builder().MakeSolid(result.solid);
    BRep_Builder().Add(result.solid, result.shell);
    BRepBndLib::Add(result.shell, result.box, false);
    return result;
}

bool isInside(const Bnd_Box& inner, const Bnd_Box& outer) {
    if (inner.IsVoid() || outer.IsVoid()) return false;
    Standard_Real a[6], b[6];
    inner.Get(a[0], a[1], a[2], a[3], a[4], a[5]);
    outer.Get(b[0], b[1], b[2], b[3], b[4], b[5]);
    for (int i = 0; i < 3; ++i) {
        if (a[i] < b[i] || a[i + 3] > b[i + 3]) return false;
    }
    return true;
}

bool liesIn(const ClosedShell& cavity, const ClosedShell& outer) {
    if (!isInside(cavity.box, outer.box)) return false;
    const TopExp_Explorer vertices(cavity.shell, TopAbs_VERTEX);
    if (!vertices.More()) return true;
    const gp_Pnt point = BRep_Tool::Pnt(TopoDS::Vertex(vertices.Current()));
    BRepClass3d_SolidClassifier classifier(outer.solid);
    classifier.Perform(point, Precision::Confusion());
    return classifier.State() == TopAbs_IN;
}

/// The smallest of those around it. Where there is only one whose box is, the kernel isn't asked.
ClosedShell* homeOf(const ClosedShell& cavity, std::vector<ClosedShell>& outers) {
    std::vector<ClosedShell*> around;
    for (ClosedShell& outer : outers) {
        if (isInside(cavity.box, outer.box)) around.push_back(&outer);
    }
    if (around.size() == 1) return around.front();
    ClosedShell* home = nullptr;
    for (ClosedShell* outer : around) {
        if ((!home || outer->volume < home->volume) && liesIn(cavity, *outer)) home = outer;
    }
    return home;
}

} // namespace

void addSolids(const std::vector<MeasuredShell>& shells, TopoDS_Compound& result) {
    const BRep_Builder builder;
    std::vector<ClosedShell> outers, cavities;
    for (const MeasuredShell& measured : shells) {
        if (BRep_Tool::IsClosed(measured.shell)) {
            (measured.volume < 0.0 ? cavities : outers).push_back(closedShell(measured));
        } else {
            builder.Add(result, measured.shell);
        }
    }
    for (const ClosedShell& cavity : cavities) {
        if (ClosedShell* home = homeOf(cavity, outers)) {
            builder.Add(home->solid, cavity.shell);
        } else {
            builder.Add(result, cavity.solid);
        }
    }
    for (const ClosedShell& outer : outers) builder.Add(result, outer.solid);
}

} // namespace host
