// SPDX-License-Identifier: Apache-2.0
// The adaptive integral along the wires, against the kernel's own Gauss sums, which know no order
// of the edges.
#include "server/measuring/facemeasure.h"

#include "host/measure/faceintegral.h"

#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_Copy.hxx>
#include <BRepGProp_Domain.hxx>
#include <BRepGProp_Face.hxx>
#include <BRepGProp_Sinert.hxx>
#include <BRepGProp_Vinert.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Poly_Triangulation.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS.hxx>
#include <gp_Vec.hxx>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace server {
namespace {

constexpr double greatestDisagreement = 1e-3; ///< relative

/// How far triangles may stray: a share of the face's diagonal, and an angle.
struct Fineness {
    double share, radians;
};
constexpr std::array<Fineness, 3> meshes{{{1e-3, 0.5}, {2.5e-4, 0.25}, {1.25e-4, 0.1}}};

struct Figures {
    double area = 0.0, volume = 0.0;
};

/// By how much two figures for one face may differ.
struct Allowance {
    double area = 0.0, volume = 0.0;
};

bool isFinite(const Figures& figures) {
    return std::isfinite(figures.area) && std::isfinite(figures.volume) && figures.area >= 0;
}

/// How far two figures for one face are apart, in allowances.
double distance(const Figures& a, const Figures& b, const Allowance& allowance) {
    constexpr double least = 1e-300; // a face without area allows nothing
    return std::max(std::abs(a.area - b.area) / std::max(allowance.area, least),
                    std::abs(a.volume - b.volume) / std::max(allowance.volume, least));
}

template <class Measure> std::optional<Figures> figuresOf(const Measure& measure) {
    try {
        const Figures figures = measure();
        return isFinite(figures) ? std::optional(figures) : std::nullopt;
    } catch (const Standard_Failure&) {
        return std::nullopt;
    } catch (const std::runtime_error&) {
        return std::nullopt; // Our own integral has no figure for it.
    }
}

std::optional<Figures> ownFigures(const TopoDS_Face& face, const gp_Pnt& reference) {
    return figuresOf([&] {
        const host::FaceIntegral integral = host::integralOf(face, reference);
        return Figures{integral.area, integral.volume};
    });
}

std::optional<Figures> kernelFigures(const TopoDS_Face& face, const gp_Pnt& reference) {
    return figuresOf([&] {
        BRepGProp_Face surface(face);
        BRepGProp_Domain border(face);
        Figures figures;
        figures.area = BRepGProp_Sinert(surface, border, reference).Mass();
        border.Init(face);
        figures.volume = BRepGProp_Vinert(surface, border, reference).Mass();
        return figures;
    });
}

Figures sumOfTriangles(const TopoDS_Face& face, const gp_Pnt& reference) {
    TopLoc_Location location;
    const Handle(Poly_Triangulation) mesh = BRep_Tool::Triangulation(face, location);
    Figures sum;
    if (mesh.IsNull()) return {-1.0, 0.0};
    const double sign = face.Orientation() == TopAbs_REVERSED ? -1.0 : 1.0;
    for (int i = 1; i <= mesh->NbTriangles(); ++i) {
        int corners[3];
        mesh->Triangle(i).Get(corners[0], corners[1], corners[2]);
        gp_Vec at[3];
        for (int k = 0; k < 3; ++k) {
            const gp_Pnt corner = mesh->Node(corners[k]).Transformed(location.Transformation());
            at[k] = gp_Vec(reference, corner);
        }
        const gp_Vec twice = (at[1] - at[0]).Crossed(at[2] - at[0]);
        sum.area += 0.5 * twice.Magnitude();
        sum.volume += sign * at[0].Dot(twice) / 6.0;
    }
    return sum;
}

double diagonalOf(const TopoDS_Face& face) {
    Bnd_Box box;
    BRepBndLib::Add(face, box, Standard_False);
    return std::sqrt(box.SquareExtent());
}

std::optional<Figures> meshFigures(const TopoDS_Face& face, const gp_Pnt& reference,
                                   const Fineness& fineness) {
    return figuresOf([&] {
        const TopoDS_Face copy = TopoDS::Face(BRepBuilderAPI_Copy(face).Shape());
        BRepTools::Clean(copy);
        const double deflection = fineness.share * diagonalOf(copy);
        const BRepMesh_IncrementalMesh mesher(copy, deflection, Standard_False, fineness.radians);
        return sumOfTriangles(copy, reference);
    });
}

FaceMeasure measureOf(const Figures& figures) { return {figures.area, figures.volume}; }

/// One of the integrals where the mesh bears it out, else the mesh itself. The mesh gets finer, at
/// growing cost, until it bears out one of them and not the other; by how much it changes on the
/// way tells how far it can be trusted.
std::optional<FaceMeasure> decided(const TopoDS_Face& face, const gp_Pnt& reference,
                                   const Allowance& allowance, const std::optional<Figures>& own,
                                   const std::optional<Figures>& kernel) {
    auto last = meshFigures(face, reference, meshes.front());
    FaceMeasure mesh;
    bool isOwnNear = false, isKernelNear = false;
    for (std::size_t i = 1; i < meshes.size() && isOwnNear == isKernelNear; ++i) {
        const auto next = meshFigures(face, reference, meshes[i]);
        if (!last || !next) return std::nullopt;
        mesh = {next->area, next->volume, std::abs(next->area - last->area),
                std::abs(next->volume - last->volume)};
        const Allowance near{std::max(allowance.area, mesh.areaUncertainty),
                             std::max(allowance.volume, mesh.volumeUncertainty)};
        isOwnNear = own && distance(*own, *next, near) <= 1.0;
        isKernelNear = kernel && distance(*kernel, *next, near) <= 1.0;
        last = next;
    }
    if (isOwnNear) return measureOf(*own);
    return isKernelNear ? measureOf(*kernel) : mesh;
}

} // namespace

std::optional<FaceMeasure> measured(const TopoDS_Face& face, const gp_Pnt& reference,
                                    double reach) {
    const auto own = ownFigures(face, reference), kernel = kernelFigures(face, reference);
    const double area = std::max(own ? own->area : 0.0, kernel ? kernel->area : 0.0);
    const Allowance allowance{greatestDisagreement * area,
                              greatestDisagreement * area * reach / 3.0};
    if (own && kernel && distance(*own, *kernel, allowance) <= 1.0) return measureOf(*own);
    return decided(face, reference, allowance, own, kernel);
}

} // namespace server
