// SPDX-License-Identifier: Apache-2.0
// A piece is followed by the next one when everything that is known of them agrees.
#include "host/shape/chains.h"

#include "host/shape/joinedcurve.h"

#include <algorithm>

namespace host {
namespace {

constexpr double jointToleranceMm = 1e-6;

/// For each edge the edges that come next along its curve, one for each use.
using Followers = std::map<Identifier, std::vector<EdgeUse>>;

Followers followersOf(const std::vector<const EdgeRun*>& loops) {
    Followers result;
    for (const EdgeRun* loop : loops) {
        const std::size_t count = loop->size();
        for (std::size_t i = 0; i < count; ++i) {
            const EdgeUse& use = (*loop)[i];
            const std::size_t next = use.along ? (i + 1) % count : (i + count - 1) % count;
            const EdgeUse& follower = (*loop)[next];
            result[use.edge].push_back({follower.edge, follower.along == use.along});
        }
    }
    return result;
}

class ChainFinder {
public:
    explicit ChainFinder(const LooseEdges& edges)
        : edges_(edges), followers_(followersOf(edges.loops)) {}

    bool isFollowedBy(Identifier piece, Identifier next) const {
        return next == piece + 1 && (next & 0xff) != 0 && haveSameSides(piece, next) &&
               followsInLoops(piece, next) &&
               continues(edges_.curves.at(piece), edges_.curves.at(next), jointToleranceMm);
    }

private:
    bool haveSameSides(Identifier a, Identifier b) const {
        const EdgeRecord& one = edges_.model->edges.at(a);
        const EdgeRecord& two = edges_.model->edges.at(b);
        return one.faces == two.faces && one.sense == two.sense;
    }
    bool followsInLoops(Identifier piece, Identifier next) const {
        const auto uses = followers_.find(piece), usesOfNext = followers_.find(next);
        if (uses == followers_.end() || usesOfNext == followers_.end()) return false;
        return uses->second.size() == usesOfNext->second.size() &&
               std::all_of(uses->second.begin(), uses->second.end(),
                           [next](const EdgeUse& use) { return use.edge == next && use.along; });
    }

    const LooseEdges& edges_;
    Followers followers_;
};

} // namespace

std::vector<std::vector<Identifier>> chainsOf(const LooseEdges& edges) {
    const ChainFinder finder(edges);
    std::vector<std::vector<Identifier>> chains;
    std::vector<Identifier> chain;
    const auto finish = [&] {
        if (chain.size() > 1) chains.push_back(chain);
        chain.clear();
    };
    for (const auto& entry : edges.curves) {
        if (!chain.empty() && !finder.isFollowedBy(chain.back(), entry.first)) finish();
        chain.push_back(entry.first);
    }
    finish();
    return chains;
}

} // namespace host
