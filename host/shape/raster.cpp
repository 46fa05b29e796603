// SPDX-License-Identifier: Apache-2.0
// Triangles by barycentric coordinates, sample by sample.
#include "host/shape/raster.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {
namespace {

struct Offset {
    double x, y;
};
/// No two in a row or a column, so that nearly level and upright edges are smoothed best.
constexpr std::array<Offset, 4> offsets{
    {{0.375, 0.125}, {0.875, 0.375}, {0.125, 0.625}, {0.625, 0.875}}};

Colour mixed(const Colour& a, const Colour& b, float share) {
    Colour result;
    for (std::size_t i = 0; i < 3; ++i) result[i] = a[i] + (b[i] - a[i]) * share;
    return result;
}

double side(const ScreenPoint& a, const ScreenPoint& b, double x, double y) {
    return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
}

struct PixelRange {
    int first, last; ///< the last is not part of it
};

PixelRange pixels(std::array<double, 3> values, int limit) {
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    const double first = std::clamp(std::floor(*low), 0.0, static_cast<double>(limit));
    const double last = std::clamp(std::floor(*high) + 1.0, 0.0, static_cast<double>(limit));
    return {static_cast<int>(first), static_cast<int>(last)};
}

std::uint8_t channel(float value) {
    return static_cast<std::uint8_t>(std::lround(255.0F * std::clamp(value, 0.0F, 1.0F)));
}

} // namespace

Canvas::Canvas(int width, int height, const Colour& top, const Colour& bottom)
    : width_(std::clamp(width, 1, greatestSize)), height_(std::clamp(height, 1, greatestSize)) {
    const auto count =
        static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * samples;
    depths_.assign(count, std::numeric_limits<float>::infinity());
    colours_.reserve(count);
    for (int y = 0; y < height_; ++y) {
        const Colour row = mixed(top, bottom, static_cast<float>(y) / static_cast<float>(height_));
        colours_.insert(colours_.end(), static_cast<std::size_t>(width_) * samples, row);
    }
}

void Canvas::put(std::size_t sample, double depth, const Colour& colour) {
    const auto value = static_cast<float>(depth);
    if (!(value < depths_[sample])) return;
    depths_[sample] = value;
    colours_[sample] = colour;
}

void Canvas::triangle(const ScreenPoint& a, const ScreenPoint& b, const ScreenPoint& c) {
    const double area = side(a, b, c.x, c.y);
    if (!std::isfinite(area) || area == 0.0) return;
    const PixelRange columns = pixels({a.x, b.x, c.x}, width_);
    const PixelRange rows = pixels({a.y, b.y, c.y}, height_);
    for (int row = rows.first; row < rows.last; ++row) {
        for (int column = columns.first; column < columns.last; ++column) {
            for (std::size_t i = 0; i < offsets.size(); ++i) {
                const double x = column + offsets[i].x, y = row + offsets[i].y;
                const double wa = side(b, c, x, y) / area, wb = side(c, a, x, y) / area;
                const double wc = 1.0 - wa - wb;
                if (wa < 0.0 || wb < 0.0 || wc < 0.0) continue;
                Colour colour;
                for (std::size_t k = 0; k < 3; ++k) {
                    colour[k] =
                        static_cast<float>(wa * a.colour[k] + wb * b.colour[k] + wc * c.colour[k]);
                }
                const auto pixel =
                    static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
                    static_cast<std::size_t>(column);
                put(pixel * samples + i, wa * a.depth + wb * b.depth + wc * c.depth, colour);
            }
        }
    }
}

void Canvas::line(const ScreenPoint& a, const ScreenPoint& b, double thickness) {
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!std::isfinite(length) || length <= 0.0) return;
    const double half = 0.5 * thickness / length;
    const double dx = -(b.y - a.y) * half, dy = (b.x - a.x) * half;
    const auto moved = [](ScreenPoint p, double x, double y) {
        p.x += x;
        p.y += y;
        return p;
    };
    triangle(moved(a, dx, dy), moved(b, dx, dy), moved(b, -dx, -dy));
    triangle(moved(a, dx, dy), moved(b, -dx, -dy), moved(a, -dx, -dy));
}

Image Canvas::image() const {
    Image result{width_, height_, {}};
    result.rgb.reserve(depths_.size() / samples * 3);
    for (std::size_t first = 0; first < colours_.size(); first += samples) {
        for (std::size_t k = 0; k < 3; ++k) {
            float sum = 0.0F;
            for (std::size_t i = 0; i < samples; ++i) sum += colours_[first + i][k];
            result.rgb.push_back(channel(sum / samples));
        }
    }
    return result;
}

} // namespace host
