// SPDX-License-Identifier: Apache-2.0
// What the kernel itself makes of a CAD file: scripts/compare-models holds imports against it.
// Shares no code with the server or the host.
//
//     kernel-figures FILE    prints {"faces", "area", "areaMargin", "volume", "volumeMargin",
//     "valid"}
//
// Square and cubic millimetres. The volume is null where a face belongs to no closed shell. Margins
// are how far the figures are in doubt: a file gives each edge a curve in space and one in the
// parameters of each surface, and what lies between the two may belong to the face or not. "valid"
// says whether all faces pass the kernel's check. Ends with 1 when the file can't be read or a
// figure is no number.
#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepGProp_Domain.hxx>
#include <BRepGProp_Face.hxx>
#include <BRepGProp_Sinert.hxx>
#include <BRepGProp_Vinert.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Geom2d_Curve.hxx>
#include <Geom_Surface.hxx>
#include <IGESControl_Reader.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Poly_Triangulation.hxx>
#include <STEPControl_Reader.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <exception>
#include <string>

namespace {

struct Figures {
    /// The volume of a face is that between it and a reference point, with its sign.
    double area = 0.0, volume = 0.0;
    double areaMargin = 0.0, volumeMargin = 0.0;

    Figures& operator+=(const Figures& other) {
        area += other.area;
        volume += other.volume;
        areaMargin += other.areaMargin;
        volumeMargin += other.volumeMargin;
        return *this;
    }
};

template <class Properties>
double integrated(const TopoDS_Face& face, const gp_Pnt& reference, double tolerance) {
    BRepGProp_Face surface(face);
    Properties properties;
    properties.SetLocation(reference);
    if (!TopExp_Explorer(face, TopAbs_EDGE).More()) {
        properties.Perform(surface, tolerance);
    } else {
        BRepGProp_Domain border(face);
        properties.Perform(surface, border, tolerance);
    }
    return properties.Mass();
}

Figures bothIntegrals(const TopoDS_Face& face, const gp_Pnt& reference, double tolerance) {
    return {integrated<BRepGProp_Sinert>(face, reference, tolerance),
            integrated<BRepGProp_Vinert>(face, reference, tolerance)};
}

bool hasManySpans(const TopoDS_Face& face) {
    constexpr int many = 5000;
    const BRepAdaptor_Surface surface(face);
    return surface.NbUIntervals(GeomAbs_CN) * surface.NbVIntervals(GeomAbs_CN) >= many;
}

/// Surfaces of very many spans are integrated less exactly, since it would take minutes and
/// gigabytes. What a coarser integration makes of them tells how far they are in doubt.
Figures integrals(const TopoDS_Face& face, const gp_Pnt& reference) {
    constexpr double exact = 1e-8, rough = 1e-5, rougher = 1e-4;
    if (!hasManySpans(face)) return bothIntegrals(face, reference, exact);
    Figures figures = bothIntegrals(face, reference, rough);
    const Figures other = bothIntegrals(face, reference, rougher);
    figures.areaMargin = std::abs(figures.area - other.area);
    figures.volumeMargin = std::abs(figures.volume - other.volume);
    return figures;
}

struct Fineness {
    double deflectionShare; ///< of the diagonal of the face
    double angleRadians;
    double areaShare; ///< how far the area of the triangles may be off
};
constexpr Fineness coarse{1e-2, 0.5, 0.1}, fine{1e-3, 0.1, 0.02};

double diagonalOf(const TopoDS_Face& face) {
    Bnd_Box box;
    BRepBndLib::Add(face, box, false);
    return box.IsVoid() ? 0.0 : std::sqrt(box.SquareExtent());
}

/// Nothing, which no integral contradicts, when the face has no triangles.
Figures meshed(const TopoDS_Face& face, const gp_Pnt& reference, const Fineness& fineness) {
    BRepTools::Clean(face);
    const BRepMesh_IncrementalMesh mesh(face, fineness.deflectionShare * diagonalOf(face), false,
                                        fineness.angleRadians);
    TopLoc_Location place;
    const Handle(Poly_Triangulation) triangles = BRep_Tool::Triangulation(face, place);
    Figures sum;
    if (triangles.IsNull()) return sum;
    for (int i = 1; i <= triangles->NbTriangles(); ++i) {
        int corners[3];
        triangles->Triangle(i).Get(corners[0], corners[1], corners[2]);
        const auto at = [&](int k) {
            return triangles->Node(corners[k]).Transformed(place.Transformation()).XYZ();
        };
        const gp_XYZ normal = (at(1) - at(0)).Crossed(at(2) - at(0));
        sum.area += normal.Modulus() / 2.0;
        sum.volume += (at(0) - reference.XYZ()).Dot(normal) / 6.0;
    }
    const bool isMirrored = place.Transformation().IsNegative();
    if ((face.Orientation() == TopAbs_REVERSED) != isMirrored) sum.volume = -sum.volume;
    return sum;
}

/// Adds what lies between the edge's curve in space and the one on the surface, as far as it isn't
/// made up for elsewhere along the edge.
void addDoubt(const TopoDS_Edge& edge, const TopoDS_Face& face, const gp_Pnt& reference,
              Figures& figures) {
    constexpr int steps = 64;
    double first = 0.0, last = 0.0;
    const Handle(Geom2d_Curve) inParameters = BRep_Tool::CurveOnSurface(edge, face, first, last);
    if (inParameters.IsNull() || BRep_Tool::Degenerated(edge)) return;
    const Handle(Geom_Surface) surface = BRep_Tool::Surface(face);
    const BRepAdaptor_Curve inSpace(edge);
    double area = 0.0, volume = 0.0;
    for (int i = 0; i < steps; ++i) {
        const double t = first + (last - first) * (i + 0.5) / steps;
        const gp_Pnt2d uv = inParameters->Value(t);
        gp_Pnt point, onSurface;
        gp_Vec along, alongU, alongV;
        inSpace.D1(t, point, along);
        surface->D1(uv.X(), uv.Y(), onSurface, alongU, alongV);
        gp_Vec normal = alongU.Crossed(alongV);
        if (normal.Magnitude() <= gp::Resolution()) continue;
        normal.Normalize();
        const double part =
            gp_Vec(point, onSurface).DotCross(along, normal) * (last - first) / steps;
        area += part;
        volume += part * gp_Vec(reference, point).Dot(normal) / 3.0;
    }
    figures.areaMargin += std::abs(area);
    figures.volumeMargin += std::abs(volume);
}

bool contradicts(const Figures& mesh, const Figures& integral, const Fineness& fineness) {
    const double apart = std::abs(integral.area - mesh.area);
    return mesh.area > 0.0 && !(apart <= fineness.areaShare * mesh.area);
}

/// The integration takes the border for what its curves say in the surface's parameters, whether
/// they close or not. Where the triangles tell another story, they are right.
Figures figuresOf(const TopoDS_Face& face, const gp_Pnt& reference) {
    Figures integral = integrals(face, reference);
    for (TopExp_Explorer walk(face, TopAbs_EDGE); walk.More(); walk.Next()) {
        addDoubt(TopoDS::Edge(walk.Current()), face, reference, integral);
    }
    if (hasManySpans(face)) return integral;
    if (!contradicts(meshed(face, reference, coarse), integral, coarse)) return integral;
    Figures mesh = meshed(face, reference, fine);
    if (!contradicts(mesh, integral, fine)) return integral;
    mesh.areaMargin = fine.areaShare * mesh.area;
    mesh.volumeMargin = fine.areaShare * std::abs(mesh.volume);
    return mesh;
}

struct Total {
    int faces = 0;
    bool isClosed = true;
    Figures figures;
};

gp_Pnt middleOf(const TopoDS_Shape& shape) {
    Bnd_Box box;
    BRepBndLib::Add(shape, box, false);
    if (box.IsVoid()) return {};
    return (box.CornerMin().XYZ() + box.CornerMax().XYZ()) * 0.5;
}

void addFaces(const TopoDS_Shape& shape, TopAbs_ShapeEnum avoided, Total& total, Figures& sum) {
    const gp_Pnt reference = middleOf(shape);
    for (TopExp_Explorer walk(shape, TopAbs_FACE, avoided); walk.More(); walk.Next()) {
        ++total.faces;
        sum += figuresOf(TopoDS::Face(walk.Current()), reference);
    }
}

void addSolid(const TopoDS_Shape& solid, Total& total) {
    Figures sum;
    addFaces(solid, TopAbs_SHAPE, total, sum);
    for (TopExp_Explorer shell(solid, TopAbs_SHELL); shell.More(); shell.Next()) {
        total.isClosed = total.isClosed && BRep_Tool::IsClosed(shell.Current());
    }
    sum.volume = std::abs(sum.volume);
    total.figures += sum;
}

Total totalOf(const TopoDS_Shape& shape) {
    Total total;
    for (TopExp_Explorer walk(shape, TopAbs_SOLID); walk.More(); walk.Next()) {
        addSolid(walk.Current(), total);
    }
    for (TopExp_Explorer walk(shape, TopAbs_SHELL, TopAbs_SOLID); walk.More(); walk.Next()) {
        addSolid(walk.Current(), total);
    }
    const int enclosing = total.faces;
    addFaces(shape, TopAbs_SHELL, total, total.figures);
    total.isClosed = total.isClosed && total.faces == enclosing;
    return total;
}

template <class Reader> TopoDS_Shape transferred(const std::string& path) {
    Reader reader;
    if (reader.ReadFile(path.c_str()) != IFSelect_RetDone) return {};
    reader.TransferRoots();
    return reader.OneShape();
}

TopoDS_Shape shapeIn(const std::string& path) {
    std::string ending = path.substr(path.find_last_of('.') + 1);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (ending == "step" || ending == "stp") return transferred<STEPControl_Reader>(path);
    if (ending == "iges" || ending == "igs") return transferred<IGESControl_Reader>(path);
    TopoDS_Shape shape;
    BRepTools::Read(shape, path.c_str(), BRep_Builder());
    return shape;
}

bool isValid(const TopoDS_Shape& shape) {
    for (TopExp_Explorer walk(shape, TopAbs_FACE); walk.More(); walk.Next()) {
        if (!BRepCheck_Analyzer(walk.Current()).IsValid()) return false;
    }
    return true;
}

int printFigures(const std::string& path) {
    const TopoDS_Shape shape = shapeIn(path);
    if (shape.IsNull()) return 1;
    const Total total = totalOf(shape);
    const Figures& sum = total.figures;
    if (!std::isfinite(sum.area + sum.areaMargin + sum.volume + sum.volumeMargin)) return 1;
    std::printf("{\"faces\": %d, \"area\": %.17g, \"areaMargin\": %.17g, ", total.faces, sum.area,
                sum.areaMargin);
    if (total.isClosed && total.faces > 0) {
        std::printf("\"volume\": %.17g, ", sum.volume);
    } else {
        std::printf("\"volume\": null, ");
    }
    std::printf("\"volumeMargin\": %.17g, \"valid\": %s}\n", sum.volumeMargin,
                isValid(shape) ? "true" : "false");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    Message::DefaultMessenger()->ChangePrinters().Clear();
    try {
        return printFigures(argv[1]);
    } catch (const Standard_Failure&) {
        return 1;
    } catch (const std::exception&) {
        return 1;
    }
}
