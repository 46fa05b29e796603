// SPDX-License-Identifier: Apache-2.0
// Records that make no solid: what is wrong is named, and the rest is built.
#include "host/shape/measure.h"
#include "host/shape/modelbuilder.h"
#include "tests/host/shape/recordofshape.h"
#include "tests/server/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace host {
namespace {

using namespace server::testing;

class UnsoundRecord : public ::testing::Test {
protected:
    ModelRecord record_ = recordOfShape(box());
    Identifier face_ = record_.shells[0].faces[0];
    Identifier loop_ = record_.faces[face_].loops[0];
    Identifier edge_ = record_.loops[loop_].edges[0];
    std::vector<DroppedRecord> dropped_;

    RebuiltModel build() {
        Progress progress;
        progress.drops = [this](const DroppedRecord& drop) { dropped_.push_back(drop); };
        return measured(builtModel(record_, progress), progress);
    }
    bool isDropped(const char* what, Identifier identifier, const char* word) const {
        return std::ranges::any_of(dropped_, [&](const DroppedRecord& drop) {
            return drop.what == what && drop.identifier == identifier &&
                   drop.why.find(word) != drop.why.npos;
        });
    }
    void setCurve(Identifier edge, CurveRecord curve) {
        record_.edges[edge].curve = std::make_shared<const CurveRecord>(std::move(curve));
    }
    void setSurface(Identifier face, SurfaceRecord surface) {
        record_.faces[face].surface = std::make_shared<const SurfaceRecord>(std::move(surface));
    }
};

TEST_F(UnsoundRecord, CostsTheTwoFacesOfABadEdge) {
    setCurve(edge_, ArcRecord{});
    EXPECT_EQ(build().faces, 4);
    EXPECT_TRUE(isDropped("edge", edge_, "normal"));
    EXPECT_TRUE(isDropped("face", face_, "edge"));
}

TEST_F(UnsoundRecord, CostsAFaceWithoutSurfaceItself) {
    record_.faces[face_].surface = nullptr;
    EXPECT_EQ(build().faces, 5);
    EXPECT_TRUE(isDropped("face", face_, "surface"));
}

TEST_F(UnsoundRecord, NamesReferencesThatLeadNowhere) {
    record_.edges.erase(edge_);
    record_.shells[0].faces.push_back(4711);
    EXPECT_EQ(build().faces, 4);
    EXPECT_TRUE(isDropped("face", face_, "is not there"));
    EXPECT_TRUE(isDropped("face", 4711, "not there"));
    dropped_.clear();
    record_.faces[face_].loops = {4712};
    build();
    EXPECT_TRUE(isDropped("face", face_, "loop 4712"));
}

TEST_F(UnsoundRecord, NamesTheGapInALoop) {
    auto& edges = record_.loops[loop_].edges;
    std::swap(edges[0], edges[1]);
    EXPECT_EQ(build().faces, 5);
    EXPECT_TRUE(isDropped("face", face_, "gap"));
}

TEST_F(UnsoundRecord, RefusesFacesWithoutLoopsUnlessTheirSurfaceIsClosed) {
    record_.faces[face_].loops.clear();
    EXPECT_EQ(build().faces, 5);
    EXPECT_TRUE(isDropped("face", face_, "no loop"));
    setSurface(face_, SphereRecord{FrameRecord{{}, {0, 0, 1}, {1, 0, 0}, {0, 6.2}, {-1, 1}}, 0.01});
    EXPECT_EQ(build().faces, 6);
}

TEST_F(UnsoundRecord, RefusesEmptyLoopsAndEdgesOfOtherFaces) {
    record_.loops[loop_].edges.clear();
    EXPECT_EQ(build().faces, 5);
    EXPECT_TRUE(isDropped("face", face_, "no edge"));
    record_.loops[loop_].edges = {edge_, edge_};
    build();
    EXPECT_TRUE(isDropped("face", face_, "as often"));
}

TEST_F(UnsoundRecord, RefusesEdgesFarFromTheirSurface) {
    setSurface(face_, SphereRecord{FrameRecord{{}, {0, 0, 1}, {1, 0, 0}, {0, 6}, {-1, 1}}, 0.5});
    EXPECT_EQ(build().faces, 5);
    EXPECT_TRUE(isDropped("face", face_, "off its surface"));
}

TEST_F(UnsoundRecord, TakesAFaceOnceOnly) {
    record_.shells.push_back(record_.shells[0]);
    EXPECT_EQ(build().faces, 6);
    EXPECT_TRUE(isDropped("face", face_, "twice"));
    EXPECT_TRUE(isDropped("shell", record_.shells[1].identifier, "no face"));
}

TEST_F(UnsoundRecord, GivesNothingForNothing) {
    record_ = {};
    const RebuiltModel model = build();
    EXPECT_EQ(model.faces, 0);
    EXPECT_FALSE(model.closed);
    EXPECT_FALSE(model.valid.has_value());
    EXPECT_EQ(model.boundingBoxM, (std::array<double, 6>{}));
}

/// Numbers of all sizes, half of them of a sensible one.
class Garbage {
public:
    double number() {
        static const double odd[] = {0.0,   -0.0, 1e300, -1e300, 1e-300,   5e-324,
                                     1e308, -1.0, 1e9,   1e-7,   HUGE_VAL, std::nan("")};
        return at(2) ? std::uniform_real_distribution(-0.1, 0.1)(random_) : odd[at(12)];
    }
    ZelVector3 vector() { return {number(), number(), number()}; }
    Range range() { return {number(), number()}; }
    FrameRecord frame() { return {vector(), vector(), vector(), range(), range()}; }
    std::size_t at(std::size_t count) { return random_() % count; }

    CurveRecord curve() {
        switch (at(3)) {
        case 0:
            return LineRecord{vector(), vector()};
        case 1:
            return ArcRecord{vector(), vector(), vector(), number(), number(), number()};
        default:
            return EllipseRecord{vector(), vector(), vector(), number(),
                                 number(), number(), number()};
        }
    }
    SurfaceRecord surface() {
        switch (at(6)) {
        case 0:
            return PlaneRecord{frame()};
        case 1:
            return CylinderRecord{frame(), number()};
        case 2:
            return ConeRecord{frame(), number()};
        case 3:
            return SphereRecord{frame(), number()};
        case 4:
            return TorusRecord{frame(), number(), number()};
        default:
            return spline();
        }
    }

private:
    NurbSurfaceRecord spline() {
        NurbSurfaceRecord record{at(2) == 0, 1 + static_cast<int>(at(3)), 1, 4, 2, {}, {}, {}, {}};
        record.knotsU.resize(5 + static_cast<std::size_t>(record.degreeU));
        for (double& knot : record.knotsU) knot = number();
        if (at(2)) std::sort(record.knotsU.begin(), record.knotsU.end());
        record.knotsV = {0, 0, 1, 1};
        for (int i = 0; i < 8; ++i) {
            record.points.push_back(vector());
            record.weights.push_back(number());
        }
        return record;
    }

    std::mt19937 random_{20240607};
};

TEST_F(UnsoundRecord, SurvivesGarbageInPlaceOfShapes) {
    Garbage garbage;
    const ModelRecord sound = record_;
    for (int round = 0; round < 300; ++round) {
        record_ = sound;
        for (auto& face : record_.faces) {
            if (garbage.at(3) == 0) setSurface(face.first, garbage.surface());
        }
        for (auto& edge : record_.edges) {
            if (garbage.at(8) == 0) setCurve(edge.first, garbage.curve());
        }
        EXPECT_LE(build().faces, 6);
    }
    EXPECT_FALSE(dropped_.empty());
}

TEST_F(UnsoundRecord, SurvivesAHundredThousandEdgesOfGarbage) {
    Garbage garbage;
    for (int i = 0; i < 100000; ++i) {
        const Identifier edge = 100000 + i;
        record_.edges[edge] = {{face_, i % 3}, {i % 2 == 0, true}, nullptr};
        setCurve(edge, garbage.curve());
        record_.loops[100000 + i / 50].edges.push_back(edge);
    }
    for (int i = 0; i < 2000; ++i) record_.faces[face_].loops.push_back(100000 + i);
    EXPECT_EQ(build().faces, 5);
    EXPECT_TRUE(isDropped("face", face_, "edge"));
}

} // namespace
} // namespace host
