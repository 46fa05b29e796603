// SPDX-License-Identifier: Apache-2.0
// Union-find over the ends of all edges.
#include "host/shape/corners.h"

#include <Precision.hxx>

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <utility>

namespace host {
namespace {

class DisjointEnds {
public:
    explicit DisjointEnds(std::size_t count) : parent_(count) {
        std::iota(parent_.begin(), parent_.end(), std::size_t{0});
    }
    std::size_t find(std::size_t end) {
        while (parent_[end] != end) end = parent_[end] = parent_[parent_[end]];
        return end;
    }
    void unite(std::size_t a, std::size_t b) { parent_[find(a)] = find(b); }

private:
    std::vector<std::size_t> parent_;
};

std::size_t firstEnd(const PlannedUse& use) { return 2 * use.edge + (use.along ? 0 : 1); }
std::size_t lastEnd(const PlannedUse& use) { return 2 * use.edge + (use.along ? 1 : 0); }

gp_Pnt pointOfEnd(const Plan& plan, std::size_t end) {
    const BoundedCurve& curve = plan.edges[end / 2].curve;
    return end % 2 == 0 ? curve.start() : curve.end();
}

class CornerFinder {
public:
    explicit CornerFinder(Plan& plan) : plan_(plan), ends_(2 * plan.edges.size()) {}

    void find() {
        for (const PlannedFace& face : plan_.faces) {
            for (const PlannedLoop& loop : face.loops) uniteNeighbours(loop);
        }
        takeOver();
        bool haveTouched = false;
        for (const PlannedFace& face : plan_.faces) haveTouched |= uniteTouching(face);
        if (haveTouched) takeOver();
    }

private:
    void uniteNeighbours(const PlannedLoop& loop) {
        for (std::size_t i = 0; i < loop.uses.size(); ++i) {
            ends_.unite(lastEnd(loop.uses[i]), firstEnd(loop.uses[(i + 1) % loop.uses.size()]));
        }
    }

    /// Fills the corners of the plan and of its edges.
    void takeOver() {
        const std::size_t count = 2 * plan_.edges.size();
        std::vector<std::size_t> cornerOf(count, count);
        std::vector<gp_XYZ> sums;
        std::vector<int> shares;
        for (std::size_t end = 0; end < count; ++end) {
            std::size_t& corner = cornerOf[ends_.find(end)];
            if (corner == count) {
                corner = sums.size();
                sums.emplace_back(0.0, 0.0, 0.0);
                shares.push_back(0);
            }
            sums[corner] += pointOfEnd(plan_, end).XYZ();
            ++shares[corner];
            plan_.edges[end / 2].corners[end % 2] = corner;
        }
        plan_.corners.assign(sums.size(), {});
        for (std::size_t i = 0; i < sums.size(); ++i) {
            plan_.corners[i].point = sums[i] / shares[i];
        }
        for (std::size_t end = 0; end < count; ++end) {
            Corner& corner = plan_.corners[cornerAt(end)];
            corner.spread = std::max(corner.spread, corner.point.Distance(pointOfEnd(plan_, end)));
        }
    }
    std::size_t cornerAt(std::size_t end) const { return plan_.edges[end / 2].corners[end % 2]; }

    /// Loops that touch do so at a common vertex; the kernel takes anything else for a crossing.
    bool uniteTouching(const PlannedFace& face) {
        if (face.loops.size() < 2) return false;
        std::map<std::size_t, std::size_t> endOf; // by corner: an end that lies there
        std::set<std::pair<std::size_t, std::size_t>> joined;
        for (const PlannedLoop& loop : face.loops) {
            for (const PlannedUse& use : loop.uses) {
                const std::size_t from = cornerAt(firstEnd(use)), to = cornerAt(lastEnd(use));
                endOf.emplace(from, firstEnd(use));
                joined.insert(std::minmax(from, to));
            }
        }
        bool haveTouched = false;
        forEachTouchingPair(endOf, [&](std::size_t a, std::size_t b) {
            if (joined.count(std::minmax(a, b)) > 0) return; // a tiny edge stays one
            ends_.unite(endOf.at(a), endOf.at(b));
            haveTouched = true;
        });
        return haveTouched;
    }

    /// Along x, so that almost all pairs are never looked at.
    template <class Corners, class Take>
    void forEachTouchingPair(const Corners& corners, const Take& take) const {
        std::vector<std::size_t> order;
        for (const auto& entry : corners) order.push_back(entry.first);
        const auto x = [this](std::size_t corner) { return plan_.corners[corner].point.X(); };
        std::sort(order.begin(), order.end(), [&](auto a, auto b) { return x(a) < x(b); });
        for (std::size_t i = 0; i < order.size(); ++i) {
            const Corner& left = plan_.corners[order[i]];
            for (std::size_t k = i + 1; k < order.size(); ++k) {
                const Corner& right = plan_.corners[order[k]];
                if (right.point.X() - left.point.X() > Precision::Confusion()) break;
                if (left.point.Distance(right.point) <= Precision::Confusion()) {
                    take(order[i], order[k]);
                }
            }
        }
    }

    Plan& plan_;
    DisjointEnds ends_;
};

} // namespace

void findCorners(Plan& plan) { CornerFinder(plan).find(); }

} // namespace host
