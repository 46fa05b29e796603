// SPDX-License-Identifier: Apache-2.0
// What a face's surface is sent as.
#pragma once

#include <Geom_BSplineSurface.hxx>
#include <TopoDS_Face.hxx>
#include <gp_Ax2.hxx>

#include <optional>
#include <string>
#include <variant>

namespace server {

struct ParameterBox {
    double u1 = 0.0, u2 = 0.0, v1 = 0.0, v2 = 0.0;
};

enum class AnalyticKind { plane, cylinder, cone, sphere, torus };

/// A surface on a right-handed frame whose Z is the main direction, in the parametrisation of its
/// message. `bounds.u1` is above `bounds.u2` when the face's outside is opposite to the surface's
/// natural side; never for a plane, whose Z is the outward normal.
struct AnalyticSurface {
    AnalyticKind kind = AnalyticKind::plane;
    gp_Ax2 frame;        ///< of a cone: at the apex, into the nappe used
    ParameterBox bounds; ///< of the face
    double size = 0.0;   ///< radius, half angle of a cone, major radius of a torus
    double tube = 0.0;   ///< minor radius of a torus
};

struct FaceSurface {
    /// Nothing when there is no way. A B-spline surface has dS/du x dS/dv outward.
    std::variant<std::monostate, AnalyticSurface, Handle(Geom_BSplineSurface)> surface;
    ParameterBox bounds; ///< of the face in the parameters that are sent, rising
    std::string from;    ///< the kind of the original, as the report names it
    std::string to;      ///< empty when the surface goes as it is
    std::string why;     ///< of a conversion, or of there being none
};

/// The kind of a face's surface without any trimming: "Plane", "BSplineSurface" and so on.
std::string surfaceKind(const TopoDS_Face& face);

/// The side outward of `face` follows its orientation. `tolerance` is for surfaces that have no
/// exact form as a B-spline. May throw what the kernel throws.
FaceSurface faceSurface(const TopoDS_Face& face, double tolerance);

} // namespace server
