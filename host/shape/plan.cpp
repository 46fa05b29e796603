// SPDX-License-Identifier: Apache-2.0
// Edges first, then the loops and faces that stand on sound edges, then joining, then corners.
#include "host/shape/plan.h"

#include "host/shape/chains.h"
#include "host/shape/corners.h"
#include "host/shape/joinedcurve.h"
#include "host/shape/kernelcall.h"
#include "host/shape/soundness.h"

#include <Bnd_Box.hxx>

#include <algorithm>
#include <cmath>
#include <deque>
#include <optional>
#include <set>
#include <string>

namespace host {
namespace {

/// Joined curves may stray this far from the chain that they stand for, or this share of the
/// model's size. Chains stray as far from their originals.
constexpr double joinToleranceMm = 1e-4;
constexpr double joinShare = 1e-5;

/// Loops with a greater gap than this, or than a thousandth of their size, aren't closed.
constexpr double leastGapMm = 0.01;

struct LooseLoop {
    Identifier identifier = 0;
    EdgeRun run;
    bool outer = true;
};

struct LooseFace {
    Identifier identifier = 0;
    const FaceRecord* record = nullptr;
    std::vector<LooseLoop> loops;
};

std::string named(const char* kind, Identifier identifier, const char* rest) {
    return std::string("its ") + kind + ' ' + std::to_string(identifier) + ' ' + rest;
}

class Planner {
public:
    Planner(const ModelRecord& model, const Progress& progress)
        : model_(model), progress_(progress) {}

    Plan plan() {
        readEdges();
        readShells();
        joinChains();
        takeOver();
        findCorners(plan_);
        return std::move(plan_);
    }

private:
    void readEdges() {
        loose_.model = &model_;
        for (const auto& [identifier, edge] : model_.edges) {
            if (progress_.isSkipped("edge", identifier)) continue;
            progress_.begin("edge", identifier);
            const std::string fault = edge.curve ? faultOf(*edge.curve) : "it has no curve";
            if (fault.empty()) {
                readCurve(identifier, *edge.curve);
            } else {
                progress_.drop("edge", identifier, fault);
            }
        }
    }
    void readCurve(Identifier identifier, const CurveRecord& record) {
        const std::string failure =
            kernelCall([&] { loose_.curves[identifier] = curveOf(record); });
        if (failure.empty()) return;
        loose_.curves.erase(identifier);
        progress_.drop("edge", identifier, failure);
    }

    void readShells() {
        std::set<Identifier> used;
        for (const ShellRecord& shell : model_.shells) {
            PlannedShell planned{shell.identifier, {}};
            for (const Identifier face : shell.faces) {
                if (!used.insert(face).second) {
                    progress_.drop("face", face, "it stands in a shell twice");
                } else if (readFace(face)) {
                    planned.faces.push_back(faces_.size() - 1);
                }
            }
            plan_.shells.push_back(std::move(planned));
        }
    }

    bool readFace(Identifier identifier) {
        if (progress_.isSkipped("face", identifier)) return false;
        const auto found = model_.faces.find(identifier);
        if (found == model_.faces.end()) {
            progress_.drop("face", identifier, "a shell names it and it is not there");
            return false;
        }
        LooseFace face{identifier, &found->second, {}};
        const std::string fault = faultOfFace(face);
        if (!fault.empty()) {
            progress_.drop("face", identifier, fault);
            return false;
        }
        faces_.push_back(std::move(face));
        return true;
    }

    /// Fills the loops on the way.
    std::string faultOfFace(LooseFace& face) {
        if (!face.record->surface) return "it has no surface";
        if (auto fault = faultOf(*face.record->surface); !fault.empty()) return fault;
        std::map<Identifier, int> uses;
        for (const Identifier identifier : face.record->loops) {
            const auto found = model_.loops.find(identifier);
            if (found == model_.loops.end()) return named("loop", identifier, "is not there");
            LooseLoop loop{identifier, {}, found->second.outer};
            auto fault = faultOfLoop(found->second, face.identifier, uses, loop);
            if (!fault.empty()) return fault;
            face.loops.push_back(std::move(loop));
        }
        return {};
    }

    /// `uses` counts the uses of each edge in the face: a seam's first is side 0, the second
    /// side 1.
    std::string faultOfLoop(const LoopRecord& record, Identifier face,
                            std::map<Identifier, int>& uses, LooseLoop& loop) const {
        if (record.edges.empty()) return named("loop", loop.identifier, "has no edge");
        for (const Identifier identifier : record.edges) {
            const auto edge = model_.edges.find(identifier);
            if (edge == model_.edges.end()) return named("edge", identifier, "is not there");
            if (!loose_.curves.count(identifier)) {
                return named("edge", identifier, "has no usable curve");
            }
            const auto side = sideOf(edge->second, face, uses[identifier]++);
            if (!side) return named("edge", identifier, "doesn't name it as often as it is used");
            loop.run.push_back({identifier, !edge->second.sense[*side]});
        }
        return faultOfGaps(loop);
    }

    static std::optional<std::size_t> sideOf(const EdgeRecord& edge, Identifier face, int earlier) {
        for (std::size_t side = 0; side < 2; ++side) {
            if (edge.faces[side] == face && earlier-- == 0) return side;
        }
        return std::nullopt;
    }

    gp_Pnt startOf(const EdgeUse& use) const {
        const BoundedCurve& curve = loose_.curves.at(use.edge);
        return use.along ? curve.start() : curve.end();
    }
    gp_Pnt endOf(const EdgeUse& use) const { return startOf({use.edge, !use.along}); }

    static void include(Bnd_Box& box, const BoundedCurve& curve) {
        for (int i = 0; i <= 4; ++i) {
            box.Add(curve.curve->Value(curve.first + (curve.last - curve.first) * i / 4));
        }
    }
    double sizeOf(const EdgeRun& run) const {
        Bnd_Box box;
        for (const EdgeUse& use : run) include(box, loose_.curves.at(use.edge));
        return std::sqrt(box.SquareExtent());
    }
    double sizeOfAll() const {
        Bnd_Box box;
        for (const auto& entry : loose_.curves) include(box, entry.second);
        return box.IsVoid() ? 0.0 : std::sqrt(box.SquareExtent());
    }

    std::string faultOfGaps(const LooseLoop& loop) const {
        const double limit = std::max(leastGapMm, 1e-3 * sizeOf(loop.run));
        for (std::size_t i = 0; i < loop.run.size(); ++i) {
            const EdgeUse& next = loop.run[(i + 1) % loop.run.size()];
            if (endOf(loop.run[i]).Distance(startOf(next)) > limit) {
                return named("loop", loop.identifier,
                             "is not closed: there is a gap behind edge ") +
                       std::to_string(loop.run[i].edge);
            }
        }
        return {};
    }

    void joinChains() {
        for (const LooseFace& face : faces_) {
            for (const LooseLoop& loop : face.loops) loose_.loops.push_back(&loop.run);
        }
        const double tolerance = std::min(joinToleranceMm, joinShare * sizeOfAll());
        for (const std::vector<Identifier>& chain : chainsOf(loose_)) {
            if (progress_.isSkipped("edge", chain.front())) continue;
            progress_.begin("edge", chain.front());
            std::vector<BoundedCurve> pieces;
            for (const Identifier piece : chain) pieces.push_back(loose_.curves.at(piece));
            std::optional<JoinedCurve> whole;
            kernelCall([&] { whole = joined(pieces, tolerance); });
            if (!whole) continue;
            addEdge(chain.front(), whole->curve, whole->deviation);
            for (std::size_t i = 1; i < chain.size(); ++i) swallowed_.insert(chain[i]);
        }
    }

    std::size_t addEdge(Identifier identifier, const BoundedCurve& curve, double deviation) {
        plan_.edges.push_back({identifier, curve, deviation, {}});
        return places_[identifier] = plan_.edges.size() - 1;
    }
    std::size_t placeOf(Identifier edge) {
        const auto found = places_.find(edge);
        return found != places_.end() ? found->second : addEdge(edge, loose_.curves.at(edge), 0.0);
    }

    void takeOver() {
        for (const LooseFace& face : faces_) {
            PlannedFace planned{face.identifier, face.record->surface, {}};
            for (const LooseLoop& loop : face.loops) planned.loops.push_back(plannedLoop(loop));
            plan_.faces.push_back(std::move(planned));
        }
    }
    PlannedLoop plannedLoop(const LooseLoop& loop) {
        PlannedLoop planned{loop.identifier, {}, loop.outer};
        for (const EdgeUse& use : loop.run) {
            if (!swallowed_.count(use.edge)) planned.uses.push_back({placeOf(use.edge), use.along});
        }
        return planned;
    }

    const ModelRecord& model_;
    const Progress& progress_;
    LooseEdges loose_;
    std::deque<LooseFace> faces_; ///< a deque, so that the loops stay where they are
    std::map<Identifier, std::size_t> places_;
    std::set<Identifier> swallowed_; ///< pieces that went into a joined curve, but the first
    Plan plan_;
};

} // namespace

Plan planOf(const ModelRecord& model, const Progress& progress) {
    return Planner(model, progress).plan();
}

} // namespace host
