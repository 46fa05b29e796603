// SPDX-License-Identifier: Apache-2.0
/// @file
/// A rotation as a quaternion; ZelMatrix4 converts from and to it.
#pragma once

/// A plain value. A rotation by the angle t about the unit axis (a, b, c) is w = cos(t / 2) and (x,
/// y, z) = sin(t / 2) (a, b, c); the negative of all four is the same rotation. Nothing keeps the
/// length at 1.
struct ZelQuaternion {
    /// The scalar part w and the vector part (x, y, z).
    /// @{
    double w = 1.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    /// @}

    /// Exact; false when a component is a NaN.
    constexpr bool operator==(const ZelQuaternion&) const = default;
};
