// SPDX-License-Identifier: Apache-2.0
/// @file
/// The compound fields of messages: plain values, with their members in wire order.
#pragma once

#include <QTypeInfo>

namespace CADImport {

/// A point or a direction.
struct Point3 {
    /// @{
    double x = 0.0, y = 0.0, z = 0.0; ///< coordinates
    bool operator==(const Point3&) const = default;
    /// @}
};

/// A point in the parameter space of a surface.
struct Point2 {
    /// @{
    double u, v; ///< parameters
    bool operator==(const Point2&) const = default;
    /// @}
};

/// A parameter range; `first` may be above `last`.
struct Range2 {
    /// @{
    double first, last; ///< bounds
    bool operator==(const Range2&) const = default;
    /// @}
};

/// A bounding box by two opposite corners. The default is inside out and means that the box was
/// never set.
struct Box {
    /// @{
    Point3 first{1.0, 1.0, 1.0}, second{-1.0, -1.0, -1.0}; ///< corners
    bool operator==(const Box&) const = default;
    /// @}
};

/// A bounding box in the parameter space of a surface, with the same default.
struct UVBox {
    /// @{
    Point2 first{1.0, 1.0}, second{-1.0, -1.0}; ///< corners
    bool operator==(const UVBox&) const = default;
    /// @}
};

/// A control point with its weight w. The coordinates aren't multiplied by the weight.
struct ControlPoint {
    /// @{
    double x, y, z, w; ///< coordinates and weight
    bool operator==(const ControlPoint&) const = default;
    /// @}
};

} // namespace CADImport

Q_DECLARE_TYPEINFO(CADImport::ControlPoint, Q_PRIMITIVE_TYPE);
