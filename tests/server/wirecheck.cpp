// SPDX-License-Identifier: Apache-2.0
// Walks the loops of a model as a receiver would.
#include "tests/server/wirecheck.h"

#include "tests/server/wiregeometry.h"

#include <BRepClass3d_SolidClassifier.hxx>
#include <TopExp_Explorer.hxx>

#include <numbers>
#include <sstream>

namespace server::testing {
namespace {

/// A use of an edge by a loop.
struct Place {
    const CADImport::CreateFace& face;
    const CADImport::CreateEdge& edge;
    const CADImport::CreateCoedge& coedge;
    const CurveMessage& curve;
    const SurfaceMessage& surface;

    gp_Pnt at(double share) const { return curvePoint(curve, coedge.sense ? 1 - share : share); }
    gp_Vec along(double share) const {
        const gp_Vec tangent = curveTangent(curve, coedge.sense ? 1 - share : share);
        return coedge.sense ? tangent.Reversed() : tangent;
    }
    int startVertex() const { return edge.vertices[coedge.sense ? 1 : 0]; }
    int endVertex() const { return edge.vertices[coedge.sense ? 0 : 1]; }
};

class Check {
public:
    explicit Check(const WireModel& model)
        : model_(model), broken_(model.problems), reach_(2.0 * model.header.accuracy + 1e-6) {}

    std::vector<std::string> run() {
        checkReferences();
        if (!broken_.empty()) return broken_;
        for (const auto& [id, edge] : model_.edges) checkSides(edge);
        for (const auto& [id, face] : model_.faces) {
            for (int loop : face.loops) checkLoop(face, model_.loops.at(loop));
        }
        return broken_;
    }

    std::vector<Place> placesOf(const CADImport::CreateFace& face,
                                const CADImport::CreateLoop& loop) const {
        std::vector<Place> places;
        for (int i = 0; i < static_cast<int>(loop.coedges.size()); ++i) {
            const auto& edge = model_.edges.at(loop.edges[i]);
            places.push_back({face, edge, model_.coedges.at(loop.coedges[i]),
                              model_.curves.at(edge.curve), model_.surfaces.at(face.surfaceId)});
        }
        return places;
    }

private:
    template <class... Words> void complain(const Words&... words) {
        if (broken_.size() >= 20) return;
        std::ostringstream line;
        (line << ... << words);
        broken_.push_back(line.str());
    }

    template <class Table> void resolve(const Table& table, int identifier, const char* what) {
        if (!table.count(identifier)) complain("no ", what, " ", identifier);
    }

    void checkReferences() {
        for (const auto& [id, body] : model_.bodies) {
            for (int shell : body.shells) resolve(model_.shells, shell, "shell");
        }
        for (const auto& [id, shell] : model_.shells) {
            for (int face : shell.faces) resolve(model_.faces, face, "face");
        }
        for (const auto& [id, face] : model_.faces) {
            resolve(model_.surfaces, face.surfaceId, "surface");
            for (int loop : face.loops) resolve(model_.loops, loop, "loop");
        }
        for (const auto& [id, loop] : model_.loops) {
            resolve(model_.faces, loop.faceId, "face");
            if (loop.coedges.size() != loop.edges.size()) complain("loop ", id, " is lopsided");
            for (int edge : loop.edges) resolve(model_.edges, edge, "edge");
            for (int coedge : loop.coedges) resolve(model_.coedges, coedge, "coedge");
        }
        for (const auto& [id, edge] : model_.edges) checkEdgeReferences(edge);
    }

    void checkEdgeReferences(const CADImport::CreateEdge& edge) {
        resolve(model_.curves, edge.curve, "curve");
        resolve(model_.faces, edge.faces[0], "face");
        resolve(model_.coedges, edge.coedges[0], "coedge");
        for (int vertex : edge.vertices) resolve(model_.vertices, vertex, "vertex");
        if ((edge.faces[1] == 0) != (edge.coedges[1] == 0))
            complain("half a side on ", edge.identifier);
        if (edge.faces[1] == 0) return;
        resolve(model_.faces, edge.faces[1], "face");
        resolve(model_.coedges, edge.coedges[1], "coedge");
    }

    void checkSides(const CADImport::CreateEdge& edge) {
        for (int side : {0, 1}) {
            if (edge.coedges[side] == 0) continue;
            const auto& coedge = model_.coedges.at(edge.coedges[side]);
            const bool sense = side == 0 ? edge.sense : !edge.sense;
            if (coedge.edge != edge.identifier || coedge.face != edge.faces[side] ||
                coedge.sense != sense || coedge.partner != edge.coedges[1 - side]) {
                complain("coedge ", coedge.identifier, " doesn't fit edge ", edge.identifier);
            }
        }
        const auto& curve = model_.curves.at(edge.curve);
        expectAt(curvePoint(curve, 0), edge.vertices[0]);
        expectAt(curvePoint(curve, 1), edge.vertices[1]);
    }

    void expectAt(const gp_Pnt& point, int vertex) {
        const auto& p = model_.vertices.at(vertex).point;
        const double off = point.Distance(gp_Pnt(p.x, p.y, p.z));
        if (off > reach_) complain("a curve ends ", off, " from vertex ", vertex);
    }

    void checkLoop(const CADImport::CreateFace& face, const CADImport::CreateLoop& loop) {
        if (loop.faceId != face.identifier) complain("loop ", loop.identifier, " is another's");
        const std::vector<Place> places = placesOf(face, loop);
        for (std::size_t i = 0; i < places.size(); ++i) {
            const Place &here = places[i], &next = places[(i + 1) % places.size()];
            const double gap = here.at(1).Distance(next.at(0));
            if (gap > 2 * reach_) complain("gap of ", gap, " in loop ", loop.identifier);
            if (here.endVertex() != next.startVertex())
                complain("no common vertex behind edge ", here.edge.identifier);
            if (here.coedge.loop != loop.identifier) complain("coedge in a foreign loop");
            checkOnSurface(here);
        }
    }

    /// A chain may stray from its edge by 1e-4 mm beyond the tolerances of the model.
    void checkOnSurface(const Place& place) {
        for (const double share : {0.0, 0.31, 0.5, 1.0}) {
            const SurfaceView view = viewSurface(place.surface, place.at(share));
            if (view.distance > reach_ + 1.1e-4 / model_.header.unit) {
                complain("edge ", place.edge.identifier, " is ", view.distance, " off face ",
                         place.face.identifier);
            }
        }
    }

    const WireModel& model_;
    std::vector<std::string> broken_;
    double reach_;
};

bool holdsMaterial(const TopoDS_Shape& original, const gp_Pnt& point) {
    for (TopExp_Explorer walk(original, TopAbs_SOLID); walk.More(); walk.Next()) {
        if (BRepClass3d_SolidClassifier(walk.Current(), point, 1e-9).State() == TopAbs_IN)
            return true;
    }
    return false;
}

/// A step to the left of the loop, then a much smaller one to either side of the face. Beside a
/// short piece the step might leave the face.
void look(const Place& place, const TopoDS_Shape& original, std::ostream& lines) {
    if (place.at(0).Distance(place.at(1)) < 0.2 && place.at(0).Distance(place.at(0.5)) < 0.2)
        return;
    const gp_Pnt middle = place.at(0.437);
    const gp_Vec outward = viewSurface(place.surface, middle).outward;
    const gp_Vec left = outward.Crossed(place.along(0.437));
    if (left.Magnitude() < 0.5) return;
    const gp_Pnt foot = middle.Translated(left.Normalized() * 2e-3);
    const SurfaceView view = viewSurface(place.surface, foot);
    const double lift = view.distance + 2e-5;
    const bool inside = holdsMaterial(original, foot.Translated(view.outward * -lift));
    const bool outside = holdsMaterial(original, foot.Translated(view.outward * lift));
    if (inside && !outside) return;
    lines << "face " << place.face.identifier << " at edge " << place.edge.identifier << ": inside "
          << inside << ", outside " << outside << '\n';
}

} // namespace

std::string brokenConventions(const WireModel& model) {
    std::string text;
    for (const std::string& line : Check(model).run()) text += line + '\n';
    return text;
}

std::string misplacedMaterial(const WireModel& model, const TopoDS_Shape& original) {
    std::ostringstream lines;
    const Check check(model);
    for (const auto& [id, face] : model.faces) {
        for (int loop : face.loops) {
            for (const Place& place : check.placesOf(face, model.loops.at(loop))) {
                look(place, original, lines);
            }
        }
    }
    return lines.str();
}

} // namespace server::testing
