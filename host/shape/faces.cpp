// SPDX-License-Identifier: Apache-2.0
// Loops are traced in the surface's parameters, put next to each other there, and become wires.
#include "host/shape/faces.h"

#include "host/shape/footprint.h"
#include "host/shape/looptrace.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Geom_SphericalSurface.hxx>
#include <Geom_ToroidalSurface.hxx>
#include <Precision.hxx>
#include <ShapeFix_Face.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Wire.hxx>

#include <algorithm>
#include <cstdio>
#include <map>

namespace host {
namespace {

/// An edge further off its surface than this, and than a fiftieth of the loop's size, isn't on it.
constexpr double greatestOffsetMm = 0.1;

std::string offsetText(Identifier edge, double offsetMm) {
    char text[80];
    std::snprintf(text, sizeof text, "its edge %d is %.3g mm off its surface", edge, offsetMm);
    return text;
}

class FaceMaker {
public:
    FaceMaker(const PlannedFace& planned, const EdgeStore& store)
        : planned_(planned), store_(store), surface_(surfaceOf(*planned.surface)),
          space_(surface_.surface) {}

    BuiltFace face() {
        if (planned_.loops.empty()) return naturalFace();
        traceLoops();
        // The loops have the last word on the side that is outside: neighbours share them.
        if (outer().area < 0.0 && outer().closes) {
            surface_.reversed = !surface_.reversed;
            traceLoops();
        }
        placeLoops();
        if (auto fault = faultOfOffsets(); !fault.empty()) return {{}, fault};
        return {build(), {}};
    }

private:
    BuiltFace naturalFace() const {
        const bool isClosed = surface_.surface->IsKind(STANDARD_TYPE(Geom_SphericalSurface)) ||
                              surface_.surface->IsKind(STANDARD_TYPE(Geom_ToroidalSurface));
        if (!isClosed) return {{}, "it has no loop and its surface is not closed"};
        TopoDS_Face face = BRepBuilderAPI_MakeFace(surface_.surface, Precision::Confusion());
        if (surface_.reversed) face.Reverse();
        return {face, {}};
    }

    void traceLoops() {
        loops_.clear();
        for (const PlannedLoop& loop : planned_.loops) {
            loops_.push_back(loopTraceOf(loop, store_, space_, surface_.reversed));
        }
    }
    const LoopTrace& outer() const { return loops_[outerPlace()]; }
    std::size_t outerPlace() const {
        const auto isOuter = [](const PlannedLoop& loop) { return loop.outer; };
        const auto found = std::find_if(planned_.loops.begin(), planned_.loops.end(), isOuter);
        return found == planned_.loops.end()
                   ? 0
                   : static_cast<std::size_t>(found - planned_.loops.begin());
    }

    /// The outer loop goes where the record says the face is, the others to where the outer is.
    void placeLoops() {
        const std::size_t place = outerPlace();
        for (int direction = 0; direction < 2; ++direction) {
            const double period = space_.period(direction);
            if (period <= 0.0) continue;
            const Range& told = direction == 0 ? surface_.u : surface_.v;
            if (surface_.hasBounds) loops_[place].moveNear(direction, period, middleOf(told));
            const double middle = loops_[place].middle(direction);
            for (LoopTrace& loop : loops_) {
                if (&loop != &loops_[place]) loop.moveNear(direction, period, middle);
            }
        }
    }
    static double middleOf(const Range& range) { return 0.5 * (range[0] + range[1]); }

    std::string faultOfOffsets() {
        double size = 0.0;
        for (const LoopTrace& loop : loops_) size = std::max(size, loop.size);
        for (const LoopTrace& loop : loops_) {
            for (const TracedUse& use : loop.uses) {
                if (use.isPole) continue;
                const auto curve = use.trace.curve();
                const double offset = deviationOf(space_, store_.curve(use.use.edge), curve);
                if (!(offset <= std::max(greatestOffsetMm, 0.02 * size))) {
                    return offsetText(store_.identifier(use.use.edge), offset);
                }
                curves_[use.use.edge][use.use.along ? 0 : 1] = curve;
                offsets_[use.use.edge] = std::max(offsets_[use.use.edge], offset);
            }
        }
        return {};
    }

    TopoDS_Face build() {
        const BRep_Builder builder;
        TopoDS_Face face;
        builder.MakeFace(face, surface_.surface, Precision::Confusion());
        attachCurves(face);
        bool closes = true;
        for (const LoopTrace& loop : loops_) {
            builder.Add(face, wireOf(loop, face));
            closes = closes && loop.closes;
        }
        if (!closes) face = withSeam(face);
        if (surface_.reversed) face.Reverse();
        return face;
    }

    void attachCurves(const TopoDS_Face& face) const {
        const BRep_Builder builder;
        for (const auto& [place, pair] : curves_) {
            const TopoDS_Edge& edge = store_.edge(place);
            const double tolerance = std::max(Precision::Confusion(), 1.05 * offsets_.at(place));
            if (space_.isPlane()) {
                builder.UpdateEdge(edge, tolerance);
            } else if (pair[0].IsNull() || pair[1].IsNull()) {
                builder.UpdateEdge(edge, pair[0].IsNull() ? pair[1] : pair[0], face, tolerance);
            } else {
                builder.UpdateEdge(edge, pair[0], pair[1], face, tolerance);
            }
        }
    }

    TopoDS_Wire wireOf(const LoopTrace& loop, const TopoDS_Face& face) const {
        const BRep_Builder builder;
        TopoDS_Wire wire;
        builder.MakeWire(wire);
        for (const TracedUse& use : loop.uses) {
            if (use.isPole) {
                builder.Add(wire, poleOf(use, face));
            } else {
                builder.Add(wire, store_.edge(use.use.edge)
                                      .Oriented(use.use.along ? TopAbs_FORWARD : TopAbs_REVERSED));
            }
        }
        wire.Closed(true);
        return wire;
    }

    /// An edge without extent, which the kernel wants where the parameters jump.
    TopoDS_Edge poleOf(const TracedUse& use, const TopoDS_Face& face) const {
        const BRep_Builder builder;
        const TopoDS_Vertex& vertex = store_.start(use.use);
        TopoDS_Edge edge;
        builder.MakeEdge(edge);
        builder.UpdateEdge(edge, use.trace.curve(), face, Precision::Confusion());
        builder.Add(edge, vertex.Oriented(TopAbs_FORWARD));
        builder.Add(edge, vertex.Oriented(TopAbs_REVERSED));
        builder.Range(edge, use.trace.nodes.front().parameter, use.trace.nodes.back().parameter);
        builder.Degenerated(edge, true);
        return edge;
    }

    /// Loops that go once round a periodic surface came without the seam that the kernel needs.
    TopoDS_Face withSeam(const TopoDS_Face& face) const {
        ShapeFix_Face fixer(face);
        fixer.FixMissingSeam();
        return fixer.Face();
    }

    const PlannedFace& planned_;
    const EdgeStore& store_;
    FaceSurface surface_;
    ParameterSpace space_;
    std::vector<LoopTrace> loops_;
    /// By edge: the curve for its use along and the one against.
    std::map<std::size_t, std::array<Handle(Geom2d_Curve), 2>> curves_;
    std::map<std::size_t, double> offsets_;
};

} // namespace

BuiltFace faceOf(const PlannedFace& planned, const EdgeStore& store) {
    return FaceMaker(planned, store).face();
}

} // namespace host
