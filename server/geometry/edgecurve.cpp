// SPDX-License-Identifier: Apache-2.0
// Lines, circles and ellipses go as they are; whatever else is recognised or becomes a chain.
#include "server/geometry/edgecurve.h"

#include "server/geometry/biarcchain.h"
#include "server/geometry/curverecognition.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRep_Tool.hxx>
#include <Precision.hxx>
#include <TopExp.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>

#include <cstdio>
#include <optional>

namespace server {
namespace {

std::optional<CurvePiece> asItIs(const BRepAdaptor_Curve& curve) {
    const double first = curve.FirstParameter(), last = curve.LastParameter();
    switch (curve.GetType()) {
    case GeomAbs_Line:
        return LinePiece{curve.Value(first), curve.Value(last)};
    case GeomAbs_Circle:
        return ArcPiece{curve.Circle().Position(), curve.Circle().Radius(), first, last};
    case GeomAbs_Ellipse:
        return EllipsePiece{curve.Ellipse().Position(), curve.Ellipse().MajorRadius(),
                            curve.Ellipse().MinorRadius(), first, last};
    default:
        return std::nullopt;
    }
}

std::string kindOf(GeomAbs_CurveType type) {
    switch (type) {
    case GeomAbs_Line:
        return "Line";
    case GeomAbs_Circle:
        return "Circle";
    case GeomAbs_Ellipse:
        return "Ellipse";
    case GeomAbs_Hyperbola:
        return "Hyperbola";
    case GeomAbs_Parabola:
        return "Parabola";
    case GeomAbs_BezierCurve:
        return "BezierCurve";
    case GeomAbs_BSplineCurve:
        return "BSplineCurve";
    case GeomAbs_OffsetCurve:
        return "OffsetCurve";
    default:
        return "OtherCurve";
    }
}

bool hasCurve(const TopoDS_Edge& edge) {
    double first = 0.0, last = 0.0;
    return BRep_Tool::IsGeometric(edge) && (BRep_Tool::Range(edge, first, last), last > first);
}

bool isBounded(const TopoDS_Edge& edge) {
    double first = 0.0, last = 0.0;
    BRep_Tool::Range(edge, first, last);
    return !Precision::IsInfinite(first) && !Precision::IsInfinite(last);
}

std::string named(const char* text, double value) {
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, "%s %.3g", text, value);
    return buffer;
}

using Borders = std::function<std::vector<BorderLimit>()>;

void convert(const BRepAdaptor_Curve& curve, const Tolerances& tolerances, const Borders& borders,
             EdgeCurve& result) {
    const double first = curve.FirstParameter(), last = curve.LastParameter();
    if (auto found = recognise(curve, first, last, tolerances.recognition)) {
        result.to = std::holds_alternative<LinePiece>(*found) ? "CreateLine" : "CreateArc";
        result.why = "recognised";
        result.pieces = {*found};
        return;
    }
    BiarcChain chain = biarcChain(curve, first, last, {tolerances.chain, borders()});
    result.to = std::to_string(chain.pieces.size()) + " arcs and lines";
    result.why = named("free-form edges travel as chains; deviation", chain.deviation);
    result.deviation = chain.deviation;
    result.pieces = std::move(chain.pieces);
}

void takeChord(const TopoDS_Edge& edge, EdgeCurve& result) {
    const auto forward = TopoDS::Edge(edge.Oriented(TopAbs_FORWARD));
    result.pieces = {LinePiece{BRep_Tool::Pnt(TopExp::FirstVertex(forward)),
                               BRep_Tool::Pnt(TopExp::LastVertex(forward))}};
    result.to = "CreateLine";
    result.why = "the edge has no curve; its vertices are joined";
}

} // namespace

std::string curveKind(const TopoDS_Edge& edge) {
    if (BRep_Tool::Degenerated(edge)) return "Degenerated";
    if (!hasCurve(edge)) return "none";
    return kindOf(BRepAdaptor_Curve(edge).GetType());
}

EdgeCurve edgeCurve(const TopoDS_Edge& edge, const Tolerances& tolerances, const Borders& borders) {
    EdgeCurve result;
    result.from = curveKind(edge);
    if (!canBeSent(edge)) {
        result.why = "the edge has neither a bounded curve nor two vertices";
    } else if (result.from == "none") {
        takeChord(edge, result);
    } else {
        const BRepAdaptor_Curve curve(edge);
        if (auto piece = asItIs(curve)) {
            result.pieces = {*piece};
        } else {
            convert(curve, tolerances, borders, result);
        }
    }
    return result;
}

bool canBeSent(const TopoDS_Edge& edge) {
    if (hasCurve(edge)) return isBounded(edge);
    return !TopExp::FirstVertex(edge).IsNull() && !TopExp::LastVertex(edge).IsNull();
}

bool hasNoExtent(const TopoDS_Edge& edge, double shortest) {
    if (BRep_Tool::Degenerated(edge)) return true;
    if (!hasCurve(edge) || !isBounded(edge)) return false;
    const BRepAdaptor_Curve curve(edge);
    const double first = curve.FirstParameter(), last = curve.LastParameter();
    const gp_Pnt start = curve.Value(first);
    for (const double share : {1.0 / 3.0, 0.5, 1.0}) {
        if (start.Distance(curve.Value(first + share * (last - first))) > shortest) return false;
    }
    return true;
}

} // namespace server
