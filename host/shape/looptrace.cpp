// SPDX-License-Identifier: Apache-2.0
// Each edge is moved by whole periods to where the one before it ended; poles fill the jumps.
#include "host/shape/looptrace.h"

#include <Bnd_Box.hxx>

#include <algorithm>
#include <cmath>

namespace host {
namespace {

/// Ends of neighbours that are nearer than this share of a period are the same place.
constexpr double sameShare = 1e-6;

std::vector<PlannedUse> naturalOrder(const std::vector<PlannedUse>& uses, bool reversed) {
    std::vector<PlannedUse> result = uses;
    if (!reversed) return result;
    std::reverse(result.begin(), result.end());
    for (PlannedUse& use : result) use.along = !use.along;
    return result;
}

class LoopTracer {
public:
    LoopTracer(const EdgeStore& store, const ParameterSpace& space)
        : store_(store), space_(space) {}

    LoopTrace trace(const std::vector<PlannedUse>& uses) {
        for (const PlannedUse& use : uses) {
            const auto isSame = [&](const PlannedUse& other) { return other.edge == use.edge; };
            const LoopSide side{use.along, std::count_if(uses.begin(), uses.end(), isSame) > 1};
            TracedUse next{use, traceOf(space_, store_.curve(use.edge), side), false};
            if (!loop_.uses.empty()) follow(loop_.uses.back(), next);
            loop_.uses.push_back(std::move(next));
        }
        close();
        measure();
        return std::move(loop_);
    }

private:
    /// Moves `next` to the end of `last` and puts a pole between them where one is.
    void follow(const TracedUse& last, TracedUse& next) {
        const int singular = singularDirection(last.end());
        for (int direction = 0; direction < 2; ++direction) {
            const double period = space_.period(direction);
            if (period <= 0.0) continue;
            const double jump = direction == singular ? jumpAtPole(last, next, direction)
                                                      : nearestJump(last, next, direction);
            const double by =
                last.end().Coord(direction + 1) + jump - next.start().Coord(direction + 1);
            next.trace.move(direction == 0 ? gp_Vec2d(by, 0.0) : gp_Vec2d(0.0, by));
        }
        if (singular >= 0) addPole(last.end(), next.start(), next.use, singular);
    }

    int singularDirection(const gp_Pnt2d& uv) const {
        for (int direction = 0; direction < 2; ++direction) {
            if (space_.isSingular(uv, direction)) return direction;
        }
        return -1;
    }

    /// What remains between the two when `next` is moved by whole periods: next to nothing.
    double nearestJump(const TracedUse& last, const TracedUse& next, int direction) const {
        const double apart = next.start().Coord(direction + 1) - last.end().Coord(direction + 1);
        const double period = space_.period(direction);
        return apart - period * std::round(apart / period);
    }

    /// Counter-clockwise means leftwards along the upper border and rightwards along the lower one.
    double jumpAtPole(const TracedUse& last, const TracedUse& next, int direction) const {
        const double period = space_.period(direction);
        const double jump = nearestJump(last, next, direction);
        const bool goesUp = arrival(last, 1 - direction) > 0.0;
        const bool isLeftwards = goesUp == (direction == 0);
        const bool isFull = std::abs(jump) < sameShare * period;
        if (isLeftwards) return jump < 0.0 && !isFull ? jump : jump - period;
        return jump > 0.0 && !isFull ? jump : jump + period;
    }

    /// The change of a parameter along the use.
    static double arrival(const TracedUse& use, int direction) {
        return use.end().Coord(direction + 1) - use.start().Coord(direction + 1);
    }

    void addPole(const gp_Pnt2d& from, const gp_Pnt2d& to, const PlannedUse& use, int direction) {
        gp_Pnt2d end = from;
        end.SetCoord(direction + 1, to.Coord(direction + 1));
        const double length = from.Distance(end);
        if (length <= 1e-9 * (1.0 + std::abs(from.Coord(direction + 1)))) return;
        const gp_Vec2d speed = gp_Vec2d(from, end) / length;
        TracedUse pole{use, {{{0.0, from, speed}, {length, end, speed}}, true}, true};
        loop_.uses.push_back(std::move(pole));
    }

    /// The first use, moved on to the end of the last, must come to lie where it is.
    void close() {
        TracedUse again = loop_.uses.front();
        follow(loop_.uses.back(), again);
        for (int direction = 0; direction < 2; ++direction) {
            const double off = again.start().Coord(direction + 1) -
                               loop_.uses.front().start().Coord(direction + 1);
            if (std::abs(off) > 0.5 * space_.period(direction) && space_.period(direction) > 0.0) {
                loop_.closes = false;
            }
        }
    }

    void measure() {
        Bnd_Box box;
        gp_Pnt2d from = loop_.uses.back().end();
        for (const TracedUse& use : loop_.uses) {
            std::vector<gp_Pnt2d> points;
            for (const Trace::Node& node : use.trace.nodes) points.push_back(node.uv);
            if (!use.use.along && !use.isPole) std::reverse(points.begin(), points.end());
            for (const gp_Pnt2d& point : points) {
                loop_.area += 0.5 * (from.X() * point.Y() - point.X() * from.Y());
                box.Add(space_.point(point));
                from = point;
            }
        }
        loop_.size = std::sqrt(box.SquareExtent());
    }

    const EdgeStore& store_;
    const ParameterSpace& space_;
    LoopTrace loop_;
};

} // namespace

double LoopTrace::middle(int direction) const {
    double least = HUGE_VAL, greatest = -HUGE_VAL;
    for (const TracedUse& use : uses) {
        for (const Trace::Node& node : use.trace.nodes) {
            least = std::min(least, node.uv.Coord(direction + 1));
            greatest = std::max(greatest, node.uv.Coord(direction + 1));
        }
    }
    return 0.5 * (least + greatest);
}

void LoopTrace::moveNear(int direction, double period, double wanted) {
    const double by = period * std::round((wanted - middle(direction)) / period);
    if (by == 0.0) return;
    for (TracedUse& use : uses) {
        use.trace.move(direction == 0 ? gp_Vec2d(by, 0.0) : gp_Vec2d(0.0, by));
    }
}

LoopTrace loopTraceOf(const PlannedLoop& loop, const EdgeStore& store, const ParameterSpace& space,
                      bool reversed) {
    return LoopTracer(store, space).trace(naturalOrder(loop.uses, reversed));
}

} // namespace host
