// SPDX-License-Identifier: Apache-2.0
// The server's own plan of a shell, taken over entity by entity.
#include "tests/host/shape/recordofshape.h"

#include "server/reading/bodies.h"
#include "server/writing/shellplan.h"

#include <BRepBndLib.hxx>
#include <Geom_BSplineSurface.hxx>

#include <cmath>

namespace host {
namespace {

class Recorder {
public:
    explicit Recorder(double unitMillimetres) : metres_(unitMillimetres / 1000.0) {}

    ModelRecord record(const TopoDS_Shape& shape) {
        Bnd_Box box;
        BRepBndLib::Add(shape, box, false);
        server::Report report;
        server::IdentifierCounters identifiers;
        const double diagonal = box.IsVoid() ? 0.0 : std::sqrt(box.SquareExtent());
        const server::ShellPlanning planning{
            identifiers, report, server::Tolerances::of(metres_ * 1000.0, diagonal), [] {}};
        for (const server::Body& body : server::bodiesOf(shape, {}, report)) {
            for (const TopoDS_Shell& shell : body.shells) take(server::planShell(shell, planning));
        }
        return std::move(model_);
    }

private:
    ZelVector3 length(const gp_XYZ& v) const {
        return {v.X() * metres_, v.Y() * metres_, v.Z() * metres_};
    }
    static ZelVector3 plain(const gp_XYZ& v) { return {v.X(), v.Y(), v.Z()}; }

    CurveRecord curve(const server::CurvePiece& piece) const {
        if (const auto* line = std::get_if<server::LinePiece>(&piece)) {
            return LineRecord{length(line->start.XYZ()), length(line->end.XYZ())};
        }
        if (const auto* arc = std::get_if<server::ArcPiece>(&piece)) {
            return ArcRecord{length(arc->frame.Location().XYZ()),
                             plain(arc->frame.Direction().XYZ()),
                             plain(arc->frame.XDirection().XYZ()),
                             arc->radius * metres_,
                             arc->first,
                             arc->last};
        }
        const auto& ellipse = std::get<server::EllipsePiece>(piece);
        return EllipseRecord{length(ellipse.frame.Location().XYZ()),
                             plain(ellipse.frame.Direction().XYZ()),
                             plain(ellipse.frame.XDirection().XYZ()),
                             ellipse.major * metres_,
                             ellipse.minor * metres_,
                             ellipse.first,
                             ellipse.last};
    }

    SurfaceRecord surface(const server::FaceSurface& face) const {
        if (const auto* analytic = std::get_if<server::AnalyticSurface>(&face.surface)) {
            return surface(*analytic);
        }
        return surface(*std::get<Handle(Geom_BSplineSurface)>(face.surface));
    }
    SurfaceRecord surface(const server::AnalyticSurface& s) const {
        const bool isPlane = s.kind == server::AnalyticKind::plane;
        const bool isRuled = isPlane || s.kind == server::AnalyticKind::cylinder ||
                             s.kind == server::AnalyticKind::cone;
        const double u = isPlane ? metres_ : 1.0, v = isRuled ? metres_ : 1.0;
        const FrameRecord frame{length(s.frame.Location().XYZ()),
                                plain(s.frame.Direction().XYZ()),
                                plain(s.frame.XDirection().XYZ()),
                                {s.bounds.u1 * u, s.bounds.u2 * u},
                                {s.bounds.v1 * v, s.bounds.v2 * v}};
        switch (s.kind) {
        case server::AnalyticKind::plane:
            return PlaneRecord{frame};
        case server::AnalyticKind::cylinder:
            return CylinderRecord{frame, s.size * metres_};
        case server::AnalyticKind::cone:
            return ConeRecord{frame, s.size};
        case server::AnalyticKind::sphere:
            return SphereRecord{frame, s.size * metres_};
        default:
            return TorusRecord{frame, s.size * metres_, s.tube * metres_};
        }
    }
    SurfaceRecord surface(const Geom_BSplineSurface& s) const {
        NurbSurfaceRecord record;
        record.rational = s.IsURational() || s.IsVRational();
        record.degreeU = s.UDegree();
        record.degreeV = s.VDegree();
        record.rows = s.NbUPoles();
        record.columns = s.NbVPoles();
        const TColStd_Array1OfReal& u = s.UKnotSequence();
        const TColStd_Array1OfReal& v = s.VKnotSequence();
        record.knotsU.assign(u.begin(), u.end());
        record.knotsV.assign(v.begin(), v.end());
        for (int row = 1; row <= record.rows; ++row) {
            for (int column = 1; column <= record.columns; ++column) {
                record.points.push_back(length(s.Pole(row, column).XYZ()));
                record.weights.push_back(s.Weight(row, column));
            }
        }
        return record;
    }

    void take(const server::ShellPlan& plan) {
        for (std::size_t i = 0; i < plan.edges.size(); ++i) {
            takeEdge(plan, plan.topology.edges[i], plan.edges[i]);
        }
        ShellRecord shell{plan.identifier, {}, {}, {}, plan.topology.closed};
        for (const server::FacePlan& face : plan.faces) {
            shell.faces.push_back(face.identifier);
            takeFace(face);
        }
        model_.shells.push_back(std::move(shell));
    }

    void takeEdge(const server::ShellPlan& plan, const server::ShellEdge& edge,
                  const server::EdgePlan& planned) {
        for (std::size_t k = 0; k < planned.pieces.size(); ++k) {
            EdgeRecord record;
            for (std::size_t side = 0; side < 2; ++side) {
                const int face = edge.sides[side].face;
                if (face < 0) continue;
                record.faces[side] = plan.faces[static_cast<std::size_t>(face)].identifier;
            }
            record.sense = {edge.curveAgainstFirst, !edge.curveAgainstFirst};
            record.curve = std::make_shared<const CurveRecord>(curve(planned.curve.pieces[k]));
            model_.edges[planned.pieces[k].edge] = record;
        }
    }

    void takeFace(const server::FacePlan& face) {
        FaceRecord record;
        record.surface = std::make_shared<const SurfaceRecord>(surface(face.geometry));
        for (const server::LoopPlan& loop : face.loops) {
            record.loops.push_back(loop.identifier);
            model_.loops[loop.identifier] = {{loop.edges.begin(), loop.edges.end()}, loop.outer};
        }
        model_.faces[face.identifier] = record;
    }

    double metres_;
    ModelRecord model_;
};

} // namespace

ModelRecord recordOfShape(const TopoDS_Shape& shape, double unitMillimetres) {
    return Recorder(unitMillimetres).record(shape);
}

} // namespace host
