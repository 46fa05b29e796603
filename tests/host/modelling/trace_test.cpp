// SPDX-License-Identifier: Apache-2.0
// Of the lines of the trace, to the letter, what no model that is read brings about. Those of every
// call are in the Creator's test.
#include "tests/host/modelling/modellingtest.h"

#include <limits>

namespace host {
namespace {

using TraceTest = ModellingTest;

TEST_F(TraceTest, WritesNumbersWithAllTheirDigitsAndNamesThoseThatAreNotFinite) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const SPtr<IZelLine> line;
    const SPtr<IZelCoordinateSystem> system;
    line->define({0.1, -0.5, 1e300}, {1, 0, 0}, nullptr, 0);
    system->setOrigin({std::numeric_limits<double>::quiet_NaN(), infinity, -infinity});
    system->setAxes({1, 0, 0}, {-0.0, 1, 0});
    EXPECT_EQ(traced.str(),
              R"(["IZelLine#1","define",[[0.10000000000000001,-0.5,1.0000000000000001e+300],)"
              R"([1,0,0],null,0]]
["IZelCoordinateSystem#1","setOrigin",[["nan","inf","-inf"]]]
["IZelCoordinateSystem#1","setAxes",[[1,0,0],[-0,1,0]]]
)");
}

} // namespace
} // namespace host
