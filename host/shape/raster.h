// SPDX-License-Identifier: Apache-2.0
// A small software rasteriser with a depth buffer and four samples a pixel. Needs no display, and
// knows neither a kernel nor a file format.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

/// Red, green, blue, each from 0 to 1.
using Colour = std::array<float, 3>;

/// x to the right and y down in pixels, depth growing away from the viewer.
struct ScreenPoint {
    double x = 0.0, y = 0.0, depth = 0.0;
    Colour colour{};
};

/// 8 bits a channel, three channels a pixel, row by row from the top.
struct Image {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgb;
};

class Canvas {
public:
    /// Both sizes from 1 to `greatestSize`. Filled from `top` at the upper border to `bottom`.
    Canvas(int width, int height, const Colour& top, const Colour& bottom);

    static constexpr int greatestSize = 8192;

    /// Colours run between the corners. Which way the corners turn doesn't matter.
    void triangle(const ScreenPoint& a, const ScreenPoint& b, const ScreenPoint& c);
    /// `thickness` is in pixels. The line's own depth decides what hides it.
    void line(const ScreenPoint& a, const ScreenPoint& b, double thickness);

    Image image() const;

private:
    static constexpr int samples = 4;

    void put(std::size_t sample, double depth, const Colour& colour);

    int width_, height_;
    std::vector<float> depths_;   ///< by sample
    std::vector<Colour> colours_; ///< by sample
};

} // namespace host
