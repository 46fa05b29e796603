// SPDX-License-Identifier: Apache-2.0
// View, light and colours.
#include "host/shape/picture.h"

#include <gp_XYZ.hxx>

#include <algorithm>
#include <cmath>

namespace host {
namespace {

constexpr Colour skyTop{0.98F, 0.985F, 0.99F}, skyBottom{0.84F, 0.87F, 0.90F};
constexpr Colour edgeColour{0.10F, 0.12F, 0.15F};
constexpr Colour backColour{0.86F, 0.10F, 0.10F};
constexpr std::array<Colour, 6> partColours{{{0.66F, 0.73F, 0.80F},
                                             {0.80F, 0.74F, 0.62F},
                                             {0.67F, 0.78F, 0.67F},
                                             {0.76F, 0.70F, 0.80F},
                                             {0.62F, 0.77F, 0.78F},
                                             {0.80F, 0.78F, 0.60F}}};
constexpr double margin = 0.06;       ///< of the picture, on each side
constexpr double edgeThickness = 1.3; ///< pixels
constexpr double edgeLift = 0.004;    ///< of the depth of the scene, towards the viewer

/// x to the right, y up, z towards the viewer, who looks from the front right and above.
struct View {
    gp_XYZ right = gp_XYZ(1.0, 1.0, 0.0).Normalized();
    gp_XYZ toViewer = gp_XYZ(1.0, -1.0, 0.9).Normalized();
    gp_XYZ up = toViewer.Crossed(right);

    gp_XYZ turned(const gp_XYZ& v) const {
        return gp_XYZ(v.Dot(right), v.Dot(up), v.Dot(toViewer));
    }
};

class Painter {
public:
    Painter(const ShapeMesh& mesh, int width, int height)
        : mesh_(mesh), canvas_(width, height, skyTop, skyBottom) {
        fit(std::clamp(width, 1, Canvas::greatestSize),
            std::clamp(height, 1, Canvas::greatestSize));
    }

    Image paint() {
        for (const FaceMesh& face : mesh_.faces) paintFace(face);
        for (const auto& edge : mesh_.edges) paintEdge(edge);
        return canvas_.image();
    }

private:
    void fit(int width, int height) {
        gp_XYZ low(HUGE_VAL, HUGE_VAL, HUGE_VAL), high(-HUGE_VAL, -HUGE_VAL, -HUGE_VAL);
        for (const FaceMesh& face : mesh_.faces) {
            for (const gp_Pnt& point : face.points) {
                const gp_XYZ at = view_.turned(point.XYZ());
                for (int i = 1; i <= 3; ++i) {
                    low.SetCoord(i, std::min(low.Coord(i), at.Coord(i)));
                    high.SetCoord(i, std::max(high.Coord(i), at.Coord(i)));
                }
            }
        }
        if (low.X() > high.X()) return;
        const gp_XYZ size = high - low;
        const double least = 1e-9 * (1.0 + size.Modulus());
        scale_ = (1.0 - 2.0 * margin) *
                 std::min(width / std::max(size.X(), least), height / std::max(size.Y(), least));
        middle_ = (high + low) * 0.5;
        lift_ = edgeLift * std::max(size.Modulus(), least);
        centreX_ = 0.5 * width;
        centreY_ = 0.5 * height;
    }

    ScreenPoint onScreen(const gp_Pnt& point, const Colour& colour) const {
        const gp_XYZ at = view_.turned(point.XYZ()) - middle_;
        return {centreX_ + scale_ * at.X(), centreY_ - scale_ * at.Y(), -at.Z(), colour};
    }

    /// A light from the upper left, a weak one at the viewer, and what comes from everywhere.
    static Colour lit(const Colour& colour, const gp_XYZ& normal) {
        static const gp_XYZ lamp = gp_XYZ(-0.35, 0.75, 0.56).Normalized();
        const double light =
            0.34 + 0.50 * std::max(0.0, normal.Dot(lamp)) + 0.26 * std::max(0.0, normal.Z());
        Colour result;
        for (std::size_t i = 0; i < 3; ++i) result[i] = static_cast<float>(colour[i] * light);
        return result;
    }

    void paintFace(const FaceMesh& face) {
        const Colour& front = partColours[static_cast<std::size_t>(face.part) % partColours.size()];
        for (const auto& triangle : face.triangles) {
            std::array<gp_XYZ, 3> corners;
            for (std::size_t i = 0; i < 3; ++i) {
                corners[i] = view_.turned(face.points[static_cast<std::size_t>(triangle[i])].XYZ());
            }
            const bool isBack =
                (corners[1] - corners[0]).Crossed(corners[2] - corners[0]).Z() < 0.0;
            std::array<ScreenPoint, 3> points;
            for (std::size_t i = 0; i < 3; ++i) {
                const auto at = static_cast<std::size_t>(triangle[i]);
                const gp_XYZ normal = view_.turned(face.normals[at].XYZ());
                points[i] = onScreen(face.points[at], isBack ? lit(backColour, normal.Reversed())
                                                             : lit(front, normal));
            }
            canvas_.triangle(points[0], points[1], points[2]);
        }
    }

    void paintEdge(const std::vector<gp_Pnt>& edge) {
        for (std::size_t i = 1; i < edge.size(); ++i) {
            ScreenPoint a = onScreen(edge[i - 1], edgeColour), b = onScreen(edge[i], edgeColour);
            a.depth -= lift_;
            b.depth -= lift_;
            canvas_.line(a, b, edgeThickness);
        }
    }

    const ShapeMesh& mesh_;
    const View view_;
    Canvas canvas_;
    double scale_ = 1.0, lift_ = 0.0, centreX_ = 0.0, centreY_ = 0.0;
    gp_XYZ middle_;
};

} // namespace

Image pictureOf(const ShapeMesh& mesh, int width, int height) {
    return Painter(mesh, width, height).paint();
}

} // namespace host
