// SPDX-License-Identifier: Apache-2.0
// Kernel values into message fields.
#include "server/writing/shapemessages.h"

#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"

#include <TColStd_Array1OfReal.hxx>

namespace server {

using CADImport::Point3;

Point3 point3(const gp_XYZ& value) { return {value.X(), value.Y(), value.Z()}; }

CADImport::Box messageBox(Bnd_Box box) {
    if (box.IsVoid()) return {};
    box.SetGap(0.0);
    return {point3(box.CornerMin().XYZ()), point3(box.CornerMax().XYZ())};
}

CADImport::UVBox uvBox(const ParameterBox& box) { return {{box.u1, box.v1}, {box.u2, box.v2}}; }

namespace {

/// The fields that arcs and ellipses share.
template <class Message, class Piece> Message conicMessage(const Piece& piece, int identifier) {
    Message message;
    message.identifier = identifier;
    message.center = point3(piece.frame.Location().XYZ());
    message.normal = point3(piece.frame.Direction().XYZ());
    message.direction = point3(piece.frame.XDirection().XYZ());
    message.startAngle = piece.first;
    message.endAngle = piece.last;
    return message;
}

struct CurveWriting {
    int identifier;
    MessageSink& sink;

    bool operator()(const LinePiece& line) const {
        CADImport::CreateLine message;
        message.identifier = identifier;
        message.startPoint = point3(line.start.XYZ());
        message.endPoint = point3(line.end.XYZ());
        return sink.write(message);
    }
    bool operator()(const ArcPiece& arc) const {
        auto message = conicMessage<CADImport::CreateArc>(arc, identifier);
        message.radius = arc.radius;
        return sink.write(message);
    }
    bool operator()(const EllipsePiece& ellipse) const {
        auto message = conicMessage<CADImport::CreateEllipse>(ellipse, identifier);
        message.bigHalfAxis = ellipse.major;
        message.littleHalfAxis = ellipse.minor;
        return sink.write(message);
    }
};

/// The fields that the analytic surfaces share.
template <class Message> Message framed(const AnalyticSurface& surface, int identifier) {
    Message message;
    message.identifier = identifier;
    message.origin = point3(surface.frame.Location().XYZ());
    message.normal = point3(surface.frame.Direction().XYZ());
    message.uDirection = point3(surface.frame.XDirection().XYZ());
    message.uRange = {surface.bounds.u1, surface.bounds.u2};
    message.vRange = {surface.bounds.v1, surface.bounds.v2};
    return message;
}

template <class Message> Message round(const AnalyticSurface& surface, int identifier) {
    auto message = framed<Message>(surface, identifier);
    message.radius = surface.size;
    return message;
}

QList<double> flatKnots(const TColStd_Array1OfReal& knots) {
    QList<double> list;
    for (const double knot : knots) list.append(knot);
    return list;
}

struct SurfaceWriting {
    int identifier;
    MessageSink& sink;

    bool operator()(std::monostate) const { return false; }
    bool operator()(const AnalyticSurface& surface) const;
    bool operator()(const Handle(Geom_BSplineSurface) & surface) const;
};

bool SurfaceWriting::operator()(const AnalyticSurface& surface) const {
    switch (surface.kind) {
    case AnalyticKind::plane:
        return sink.write(framed<CADImport::CreatePlane>(surface, identifier));
    case AnalyticKind::cylinder:
        return sink.write(round<CADImport::CreateCylinder>(surface, identifier));
    case AnalyticKind::sphere:
        return sink.write(round<CADImport::CreateSphere>(surface, identifier));
    case AnalyticKind::cone: {
        auto cone = framed<CADImport::CreateCone>(surface, identifier);
        cone.angle = surface.size;
        return sink.write(cone);
    }
    case AnalyticKind::torus:
        break;
    }
    auto torus = framed<CADImport::CreateTorus>(surface, identifier);
    torus.majorRadius = surface.size;
    torus.minorRadius = surface.tube;
    return sink.write(torus);
}

bool SurfaceWriting::operator()(const Handle(Geom_BSplineSurface) & surface) const {
    CADImport::CreateNURBSSurface message;
    message.identifier = identifier;
    message.degreeU = surface->UDegree();
    message.degreeV = surface->VDegree();
    message.knotsU = flatKnots(surface->UKnotSequence());
    message.knotsV = flatKnots(surface->VKnotSequence());
    for (int row = 1; row <= surface->NbUPoles(); ++row) {
        QList<CADImport::ControlPoint> points;
        for (int column = 1; column <= surface->NbVPoles(); ++column) {
            const gp_Pnt pole = surface->Pole(row, column);
            points.append({pole.X(), pole.Y(), pole.Z(), surface->Weight(row, column)});
        }
        message.controlPoints.append(points);
    }
    message.rational = surface->IsURational() || surface->IsVRational();
    return sink.write(message);
}

} // namespace

bool writeCurve(const CurvePiece& piece, int identifier, MessageSink& sink) {
    return std::visit(CurveWriting{identifier, sink}, piece);
}

bool writeSurface(const FaceSurface& surface, int identifier, MessageSink& sink) {
    return std::visit(SurfaceWriting{identifier, sink}, surface.surface);
}

} // namespace server
