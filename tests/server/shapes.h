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
    friend std::ostream& operator<<(std::ostream& out, const NamedShape& shape) {
        return out << shape.name;
    }
};

/// Solids, one or several in a shape; all of them valid and closed.
const std::vector<NamedShape>& solidShapes();

TopoDS_Shape box();
TopoDS_Shape boxWithVoid();
TopoDS_Shape mirrored(const TopoDS_Shape& shape);
TopoDS_Shape extrudedSpline();

} // namespace server::testing
