// SPDX-License-Identifier: Apache-2.0
// Walks the wires in order, gathers the uses of each edge, and pairs them.
#include "server/writing/shelltopology.h"

#include "host/measure/border.h"

#include <BRepTools.hxx>
#include <BRepTools_WireExplorer.hxx>
#include <ShapeExtend_WireData.hxx>
#include <ShapeFix_Wire.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Wire.hxx>

#include <algorithm>

namespace server {
namespace {

/// A place in a loop before the edges are paired.
struct Use {
    int face = 0, loop = 0, place = 0;
    bool forward = true; ///< the loop runs with the curve
    bool paired = false;
};

using Edges = std::vector<TopoDS_Edge>;

/// The kernel's own repair, for wires whose edges the explorer can't follow to the end.
Edges reordered(const TopoDS_Wire& wire, const TopoDS_Face& face) {
    ShapeFix_Wire fix(wire, face, Precision::Confusion());
    fix.FixReorder();
    Edges edges;
    for (int i = 1; i <= fix.WireData()->NbEdges(); ++i) edges.push_back(fix.WireData()->Edge(i));
    return edges;
}

/// The edges in the order and direction of the wire. `face` is forward.
Edges inOrder(const TopoDS_Wire& wire, const TopoDS_Face& face) {
    Edges edges;
    for (BRepTools_WireExplorer walk(wire, face); walk.More(); walk.Next()) {
        edges.push_back(walk.Current());
    }
    std::size_t count = 0;
    for (TopExp_Explorer all(wire, TopAbs_EDGE); all.More(); all.Next()) {
        if (host::isBoundary(all.Current())) ++count;
    }
    return edges.size() == count ? edges : reordered(wire, face);
}

class Builder {
public:
    Builder(const TopologyOptions& options, Report& report) : options_(options), report_(report) {}

    void add(const TopoDS_Face& face);
    ShellTopology finish();

private:
    std::vector<Edges> loopsOf(const TopoDS_Face& face);
    Edges loopOf(const TopoDS_Shape& wire, const TopoDS_Face& forward, bool turned);
    void addLoop(const Edges& edges, bool turned, ShellFace& target);
    bool keeps(const TopoDS_Edge& edge);
    void pairUses(int original);
    void makeEdge(int original, Use& first, Use* second);
    void setPlace(const Use& use, int side);

    const TopologyOptions& options_;
    Report& report_;
    ShellTopology result_;
    std::size_t wanted_ = 0;
    TopTools_IndexedMapOfShape originals_;
    std::vector<std::vector<Use>> uses_; ///< for each original edge
};

void Builder::add(const TopoDS_Face& face) {
    options_.nextFace();
    if (!host::isBoundary(face)) {
        return options_.dropped("it lies inside the material and bounds nothing");
    }
    std::vector<Edges> loops;
    try {
        if (!options_.wanted(face)) return;
        ++wanted_;
        loops = loopsOf(face);
    } catch (const Standard_Failure& failure) {
        loops.clear();
        return options_.dropped(std::string("the geometry kernel can't follow its wires: ") +
                                failure.GetMessageString());
    }
    if (loops.empty()) return options_.dropped("it has no edge with an extent");
    ShellFace target{face, {}, wanted_ - 1};
    for (const Edges& loop : loops) addLoop(loop, face.Orientation() == TopAbs_REVERSED, target);
    result_.faces.push_back(std::move(target));
}

bool Builder::keeps(const TopoDS_Edge& edge) {
    if (host::isBoundary(edge)) return options_.hasExtent(edge);
    report_.noted("edge", 0, "it lies inside a face and bounds nothing");
    return false;
}

/// The wire's edges that have an extent. A wire of a face that is turned runs the other way round.
Edges Builder::loopOf(const TopoDS_Shape& wire, const TopoDS_Face& forward, bool turned) {
    Edges edges = inOrder(TopoDS::Wire(wire), forward), kept;
    if (turned) std::reverse(edges.begin(), edges.end());
    for (const TopoDS_Edge& edge : edges) {
        if (keeps(edge)) kept.push_back(edge);
    }
    return kept;
}

std::vector<Edges> Builder::loopsOf(const TopoDS_Face& face) {
    const TopoDS_Face forward = TopoDS::Face(face.Oriented(TopAbs_FORWARD));
    const bool turned = face.Orientation() == TopAbs_REVERSED;
    const TopoDS_Wire outer = BRepTools::OuterWire(forward);
    std::vector<Edges> loops;
    if (!outer.IsNull()) loops.push_back(loopOf(outer, forward, turned));
    for (TopExp_Explorer walk(forward, TopAbs_WIRE); walk.More(); walk.Next()) {
        if (!walk.Current().IsSame(outer)) loops.push_back(loopOf(walk.Current(), forward, turned));
    }
    std::erase_if(loops, [](const Edges& loop) { return loop.empty(); });
    return loops;
}

void Builder::addLoop(const Edges& edges, bool turned, ShellFace& target) {
    ShellLoop loop;
    loop.outer = target.loops.empty();
    for (const TopoDS_Edge& edge : edges) {
        const auto original = static_cast<std::size_t>(originals_.Add(edge) - 1);
        if (original == uses_.size()) uses_.emplace_back();
        Use use{static_cast<int>(result_.faces.size()), static_cast<int>(target.loops.size()),
                static_cast<int>(loop.places.size())};
        use.forward = (edge.Orientation() == TopAbs_FORWARD) != turned;
        uses_[original].push_back(use);
        loop.places.emplace_back();
    }
    target.loops.push_back(std::move(loop));
}

void Builder::setPlace(const Use& use, int side) {
    const int edge = static_cast<int>(result_.edges.size()) - 1;
    ShellFace& face = result_.faces[static_cast<std::size_t>(use.face)];
    ShellLoop& loop = face.loops[static_cast<std::size_t>(use.loop)];
    loop.places[static_cast<std::size_t>(use.place)] = {edge, side};
}

void Builder::makeEdge(int original, Use& first, Use* second) {
    ShellEdge edge;
    edge.edge = TopoDS::Edge(originals_(original + 1).Oriented(TopAbs_FORWARD));
    edge.curveAgainstFirst = !first.forward;
    edge.sides[0] = {first.face, first.loop};
    if (second) edge.sides[1] = {second->face, second->loop};
    result_.edges.push_back(edge);
    setPlace(first, 0);
    if (second) setPlace(*second, 1);
    first.paired = true;
    if (second) second->paired = true;
}

void Builder::pairUses(int original) {
    auto& uses = uses_[static_cast<std::size_t>(original)];
    int copies = 0;
    for (Use& use : uses) {
        if (use.paired) continue;
        const auto partner = std::find_if(uses.begin(), uses.end(), [&use](const Use& other) {
            return !other.paired && other.forward != use.forward;
        });
        makeEdge(original, use, partner == uses.end() ? nullptr : &*partner);
        if (partner == uses.end()) result_.closed = false;
        ++copies;
    }
    if (copies > 1) {
        report_.converted({"edge", 0, std::to_string(uses.size()) + " uses",
                           std::to_string(copies) + " edges", "an edge has two sides only"});
    }
}

ShellTopology Builder::finish() {
    result_.closed = !result_.faces.empty();
    for (int i = 0; i < static_cast<int>(uses_.size()); ++i) pairUses(i);
    return std::move(result_);
}

} // namespace

ShellTopology shellTopology(const TopoDS_Shell& shell, const TopologyOptions& options,
                            Report& report) {
    Builder builder(options, report);
    for (TopExp_Explorer walk(shell, TopAbs_FACE); walk.More(); walk.Next()) {
        builder.add(TopoDS::Face(walk.Current()));
    }
    return builder.finish();
}

} // namespace server
