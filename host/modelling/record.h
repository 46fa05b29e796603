// SPDX-License-Identifier: Apache-2.0
// The plain record of what arrived at the reference host: no pointers into the module, no geometry
// kernel. The rebuilding of solids and the report read it; nothing else is kept of an import.
//
// Units are metres and radians. Directions are kept as they came, not normalised. Identifiers are
// those of the messages and are unique within a model and a kind only.
#pragma once

#include "zelbasictypes/math/zelvector3.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace host {

using Identifier = std::int32_t;
using Range = std::array<double, 2>;

struct LineRecord {
    ZelVector3 start, end;
};
struct ArcRecord {
    ZelVector3 center, normal, direction;
    double radius = 0.0, startAngle = 0.0, endAngle = 0.0;
};
struct EllipseRecord {
    ZelVector3 center, normal, direction;
    double bigHalfAxis = 0.0, littleHalfAxis = 0.0, startAngle = 0.0, endAngle = 0.0;
};
using CurveRecord = std::variant<LineRecord, ArcRecord, EllipseRecord>;

/// A range that is a length (both of a plane, v of a cylinder and a cone) is in metres.
struct FrameRecord {
    ZelVector3 origin, normal, uDirection;
    Range uRange{}, vRange{};
};
struct PlaneRecord : FrameRecord {};
struct CylinderRecord : FrameRecord {
    double radius = 0.0;
};
struct ConeRecord : FrameRecord {
    double halfAngle = 0.0;
};
struct SphereRecord : FrameRecord {
    double radius = 0.0;
};
struct TorusRecord : FrameRecord {
    double majorRadius = 0.0, minorRadius = 0.0;
};
/// `points` has rows * columns entries, row by row; rows run with u. Weights likewise.
struct NurbSurfaceRecord {
    bool rational = false;
    std::int32_t degreeU = 0, degreeV = 0, rows = 0, columns = 0;
    std::vector<double> knotsU, knotsV;
    std::vector<ZelVector3> points;
    std::vector<double> weights;
};
using SurfaceRecord = std::variant<PlaneRecord, CylinderRecord, ConeRecord, SphereRecord,
                                   TorusRecord, NurbSurfaceRecord>;

/// `sense[s]` false: the curve runs with the loop of `faces[s]`; true: against it.
struct EdgeRecord {
    std::array<Identifier, 2> faces{};
    std::array<bool, 2> sense{};
    std::shared_ptr<const CurveRecord> curve; ///< null when the edge came without one
};
/// The edges in the order of the loop, which runs with the outward normal of its face.
struct LoopRecord {
    std::vector<Identifier> edges;
    bool outer = true;
};
struct FaceRecord {
    std::shared_ptr<const SurfaceRecord> surface; ///< null when the face came without one
    std::vector<Identifier> loops;
};
struct ShellRecord {
    Identifier identifier = 0;
    ZelVector3 boxMin, boxMax;
    std::vector<Identifier> faces;
    bool closed = false;
};

struct ModelRecord {
    bool absolute = true; ///< whether `accuracy` is a length in model units or relative
    double accuracy = 0.0;
    std::map<Identifier, EdgeRecord> edges;
    std::map<Identifier, LoopRecord> loops;
    std::map<Identifier, FaceRecord> faces;
    std::vector<ShellRecord> shells; ///< in the order of arrival
};

struct CoordinateSystemRecord {
    ZelVector3 origin;       ///< as received, in model units
    ZelVector3 xAxis, yAxis; ///< as received, scaled with the model
};

/// Something that arrived and could not be kept or built, and why.
struct DroppedRecord {
    std::string what; ///< "edge", "face", "curve", ...
    Identifier identifier = 0;
    std::string why;
    std::int32_t model = 0; ///< its place among the finished models, from 1; 0 for none of them
};

struct ImportRecord {
    std::vector<ModelRecord> models; ///< the finished ones, in order
    std::vector<CoordinateSystemRecord> coordinateSystems;
    std::vector<DroppedRecord> dropped;
};

} // namespace host
