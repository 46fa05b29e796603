// SPDX-License-Identifier: Apache-2.0
// Union-find over the ends of all edges.
#include "host/shape/corners.h"

#include <algorithm>
#include <numeric>

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

void uniteNeighbours(const PlannedLoop& loop, DisjointEnds& ends) {
    for (std::size_t i = 0; i < loop.uses.size(); ++i) {
        ends.unite(lastEnd(loop.uses[i]), firstEnd(loop.uses[(i + 1) % loop.uses.size()]));
    }
}

gp_Pnt pointOfEnd(const Plan& plan, std::size_t end) {
    const BoundedCurve& curve = plan.edges[end / 2].curve;
    return end % 2 == 0 ? curve.start() : curve.end();
}

} // namespace

void findCorners(Plan& plan) {
    const std::size_t count = 2 * plan.edges.size();
    DisjointEnds ends(count);
    for (const PlannedFace& face : plan.faces) {
        for (const PlannedLoop& loop : face.loops) uniteNeighbours(loop, ends);
    }
    std::vector<std::size_t> cornerOf(count, count);
    std::vector<gp_XYZ> sums;
    std::vector<int> shares;
    for (std::size_t end = 0; end < count; ++end) {
        std::size_t& corner = cornerOf[ends.find(end)];
        if (corner == count) {
            corner = sums.size();
            sums.emplace_back(0.0, 0.0, 0.0);
            shares.push_back(0);
        }
        sums[corner] += pointOfEnd(plan, end).XYZ();
        ++shares[corner];
        plan.edges[end / 2].corners[end % 2] = corner;
    }
    plan.corners.resize(sums.size());
    for (std::size_t i = 0; i < sums.size(); ++i) plan.corners[i].point = sums[i] / shares[i];
    for (std::size_t end = 0; end < count; ++end) {
        Corner& corner = plan.corners[plan.edges[end / 2].corners[end % 2]];
        corner.spread = std::max(corner.spread, corner.point.Distance(pointOfEnd(plan, end)));
    }
}

} // namespace host
