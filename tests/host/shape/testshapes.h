// SPDX-License-Identifier: Apache-2.0
// Solids with every kind of surface and curve, in places where nothing is parallel to an axis.
#pragma once

#include <TopoDS_Shape.hxx>

#include <ostream>
#include <string>
#include <vector>

namespace host {

struct TestShape {
    std::string name;
    TopoDS_Shape (*make)();
    int shells = 1;
};

/// So that a failing test shows the name.
inline std::ostream& operator<<(std::ostream& out, const TestShape& shape) {
    return out << shape.name;
}

const std::vector<TestShape>& testShapes();

TopoDS_Shape boxShape(); ///< 10 x 20 x 30 from the origin

} // namespace host
