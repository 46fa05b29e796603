// SPDX-License-Identifier: Apache-2.0
// Best first: the net with the greatest control value is halved until that value is attained,
// within the tolerance, at a corner of some net. Corners are points of the patch.
#include "host/measure/beziernet.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace host {
namespace {

constexpr int mostHalvings = 2000;

std::size_t placeIn(const BezierNet& net, int row, int column) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(net.columns) +
           static_cast<std::size_t>(column);
}

double valueAt(const BezierNet& net, std::size_t place) {
    return net.products[place] / net.weights[place];
}
double valueAt(const BezierNet& net, int row, int column) {
    return valueAt(net, placeIn(net, row, column));
}

double greatestControlValue(const BezierNet& net) {
    double greatest = valueAt(net, 0);
    for (std::size_t i = 1; i < net.weights.size(); ++i) {
        greatest = std::max(greatest, valueAt(net, i));
    }
    return greatest;
}

double greatestCorner(const BezierNet& net) {
    const int row = net.rows - 1, column = net.columns - 1;
    return std::max({valueAt(net, 0, 0), valueAt(net, 0, column), valueAt(net, row, 0),
                     valueAt(net, row, column)});
}

/// How far the net is from linear along its rows or columns.
double bend(const BezierNet& net, bool acrossRows) {
    double sum = 0.0;
    const int down = acrossRows ? 1 : 0, right = acrossRows ? 0 : 1;
    for (int i = down; i < net.rows - down; ++i) {
        for (int k = right; k < net.columns - right; ++k) {
            sum += std::abs(valueAt(net, i - down, k - right) - 2.0 * valueAt(net, i, k) +
                            valueAt(net, i + down, k + right));
        }
    }
    return sum;
}

/// De Casteljau's algorithm at the middle of one line of the net, `stride` apart: the line becomes
/// the second half, and `first` receives the first.
void halveLine(std::vector<double>& second, std::vector<double>& first, std::size_t start,
               std::size_t stride, int count) {
    const auto at = [&](int i) { return start + static_cast<std::size_t>(i) * stride; };
    for (int done = 0; done < count; ++done) {
        first[at(done)] = second[start];
        for (int i = 0; i + 1 < count - done; ++i) {
            second[at(i)] = 0.5 * (second[at(i)] + second[at(i + 1)]);
        }
    }
}

/// Leaves the second half in `net` and returns the first.
BezierNet takeHalf(BezierNet& net) {
    const bool acrossRows = bend(net, true) >= bend(net, false);
    BezierNet first = net;
    const int lines = acrossRows ? net.columns : net.rows;
    const int count = acrossRows ? net.rows : net.columns;
    for (int line = 0; line < lines; ++line) {
        const std::size_t start = acrossRows ? placeIn(net, 0, line) : placeIn(net, line, 0);
        const std::size_t stride = acrossRows ? placeIn(net, 1, 0) : 1;
        halveLine(net.products, first.products, start, stride, count);
        halveLine(net.weights, first.weights, start, stride, count);
    }
    return first;
}

class Search {
public:
    Search(double known, double tolerance) : attained_(known), tolerance_(tolerance) {}

    void add(BezierNet net) {
        attained_ = std::max(attained_, greatestCorner(net));
        const double bound = greatestControlValue(net);
        if (bound <= attained_ + tolerance_) {
            settled_ = std::max(settled_, bound);
            return;
        }
        open_.push_back({bound, std::move(net)});
        std::push_heap(open_.begin(), open_.end(), isBelow);
    }

    double upperBound() {
        for (int i = 0; i < mostHalvings && isOpen(); ++i) {
            Candidate candidate = takeGreatest();
            add(takeHalf(candidate.net));
            add(std::move(candidate.net));
        }
        return std::max({attained_, settled_, open_.empty() ? settled_ : open_.front().bound});
    }

private:
    struct Candidate {
        double bound;
        BezierNet net;
    };
    bool isOpen() const { return !open_.empty() && open_.front().bound > attained_ + tolerance_; }
    static bool isBelow(const Candidate& a, const Candidate& b) { return a.bound < b.bound; }

    Candidate takeGreatest() {
        std::pop_heap(open_.begin(), open_.end(), isBelow);
        Candidate candidate = std::move(open_.back());
        open_.pop_back();
        return candidate;
    }

    double attained_;            ///< known, or the value of a corner
    double settled_ = attained_; ///< the greatest bound of a net that isn't halved any more
    double tolerance_;
    std::vector<Candidate> open_; ///< a heap
};

} // namespace

double upperBound(std::vector<BezierNet> nets, double known, double tolerance) {
    Search search(known, tolerance);
    for (BezierNet& net : nets) search.add(std::move(net));
    return search.upperBound();
}

} // namespace host
