// SPDX-License-Identifier: Apache-2.0
// Shapes made in code, each with something that a conversion may get wrong.
#pragma once

#include <TopoDS_Shape.hxx>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace server::testing {

struct NamedShape {
    std::string name;
    std::function<TopoDS_Shape()> make;
    std::string surface; ///< a wire name that has to occur among them
    int shells = 1;      ///< as the host builds them, which parts what only touches
    friend std::ostream& operator<<(std::ostream& out, const NamedShape& shape) {
        return out << shape.name;
    }
};

/// Solids, one or several in a shape, with every kind of surface and curve; all of them valid and
/// closed, and most in places where nothing is parallel to an axis.
const std::vector<NamedShape>& solidShapes();
TopoDS_Shape shapeNamed(const std::string& name);
/// Each once.
int countOf(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind);

TopoDS_Shape box(); ///< 10 x 20 x 30 from the origin
TopoDS_Shape mirrored(const TopoDS_Shape& shape);
TopoDS_Shape extrudedSpline();
/// A wavy strip, so narrow that its area shows what its long borders do.
TopoDS_Shape splineStrip();

} // namespace server::testing
