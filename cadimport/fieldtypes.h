// SPDX-License-Identifier: Apache-2.0
/// @file
/// The compound fields of messages: plain values, in the order in which they travel.
#pragma once

#include <QTypeInfo>

namespace CADImport {

/// A point or a direction.
struct Point3 {
    double x = 0.0, y = 0.0, z = 0.0;
    bool operator==(const Point3&) const = default;
};

/// A point of a surface's parameter space.
struct Point2 {
    double u, v;
    bool operator==(const Point2&) const = default;
};

/// A range of a parameter; `first` may lie above `last`.
struct Range2 {
    double first, last;
    bool operator==(const Range2&) const = default;
};

/// Two opposite corners. The default, turned inside out, stands for a box that was never set.
struct Box {
    Point3 first{1.0, 1.0, 1.0}, second{-1.0, -1.0, -1.0};
    bool operator==(const Box&) const = default;
};

/// A box in a surface's parameter space, with the same default.
struct UVBox {
    Point2 first{1.0, 1.0}, second{-1.0, -1.0};
    bool operator==(const UVBox&) const = default;
};

/// A control point and its weight, the coordinates not multiplied by it.
struct ControlPoint {
    double x, y, z, w;
    bool operator==(const ControlPoint&) const = default;
};

} // namespace CADImport

Q_DECLARE_TYPEINFO(CADImport::ControlPoint, Q_PRIMITIVE_TYPE);
