// SPDX-License-Identifier: Apache-2.0
// Pictures are looked at pixel by pixel.
#include "host/shape/picture.h"

#include "host/shape/filefailure.h"
#include "host/shape/modelbuilder.h"
#include "host/shape/pngfile.h"
#include "tests/host/shape/recordofshape.h"
#include "tests/server/shapes.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <cstdio>

namespace host {
namespace {

using namespace server::testing;

struct Pixel {
    int red, green, blue;
    bool operator==(const Pixel&) const = default;
};

Pixel pixel(const Image& image, int x, int y) {
    const auto at = (static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
                     static_cast<std::size_t>(x)) *
                    3;
    return {image.rgb[at], image.rgb[at + 1], image.rgb[at + 2]};
}

bool isRed(const Pixel& p) { return p.red > 60 && p.green < p.red / 3 && p.blue < p.red / 3; }

double redShare(const Image& image) {
    int red = 0;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) red += isRed(pixel(image, x, y));
    }
    return static_cast<double>(red) / (image.width * image.height);
}

Image pictureOf(const ModelRecord& record) {
    return pictureOf(meshOf(builtModel(record, Progress()).shape), 320, 240);
}

/// Turns a plane, and its loops with it, inside out.
void turn(ModelRecord& record, Identifier face) {
    auto plane = std::get<PlaneRecord>(*record.faces[face].surface);
    plane.normal = plane.normal * -1.0;
    record.faces[face].surface = std::make_shared<const SurfaceRecord>(plane);
    for (const Identifier loop : record.faces[face].loops) {
        auto& edges = record.loops[loop].edges;
        std::reverse(edges.begin(), edges.end());
        for (const Identifier edge : edges) {
            EdgeRecord& known = record.edges[edge];
            const std::size_t side = known.faces[0] == face ? 0 : 1;
            known.sense[side] = !known.sense[side];
        }
    }
}

TEST(Picture, ShowsNoRedOnASoundSolid) {
    for (const NamedShape& shape : solidShapes()) {
        EXPECT_EQ(redShare(pictureOf(recordOfShape(shape.make()))), 0.0) << shape.name;
    }
}

TEST(Picture, ShowsFacesThatAreInsideOutInRed) {
    const ModelRecord sound = recordOfShape(box());
    double most = 0.0;
    for (const Identifier face : sound.shells[0].faces) {
        ModelRecord record = sound;
        turn(record, face);
        most = std::max(most, redShare(pictureOf(record)));
    }
    EXPECT_GT(most, 0.05);
}

TEST(Picture, ShowsTheShapeInItsMiddle) {
    const Image image = pictureOf(recordOfShape(box()));
    ASSERT_EQ(image.width, 320);
    ASSERT_EQ(image.rgb.size(), 320U * 240U * 3U);
    const Pixel middle = pixel(image, 160, 120), corner = pixel(image, 2, 120);
    EXPECT_LT(middle.green + 20, corner.green);
    EXPECT_EQ(pixel(image, 2, 120), pixel(image, 317, 120));
}

TEST(Picture, IsBackgroundOnlyWithoutAShape) {
    const Image image = pictureOf(ShapeMesh(), 40, 30);
    for (int y = 0; y < 30; ++y) EXPECT_EQ(pixel(image, 0, y), pixel(image, 39, y));
    EXPECT_NE(pixel(image, 0, 0), pixel(image, 0, 29));
}

TEST(Canvas, ShowsWhatIsNearerInWhateverOrder) {
    const Colour red{1, 0, 0}, blue{0, 0, 1};
    for (const bool nearFirst : {true, false}) {
        Canvas canvas(20, 20, {}, {});
        for (const bool isNear : {nearFirst, !nearFirst}) {
            const double depth = isNear ? 1.0 : 2.0;
            const Colour& colour = isNear ? red : blue;
            canvas.triangle({-50, -50, depth, colour}, {90, -50, depth, colour},
                            {0, 90, depth, colour});
        }
        EXPECT_EQ(pixel(canvas.image(), 10, 10), (Pixel{255, 0, 0}));
    }
}

TEST(Canvas, SmoothsBordersByFourSamples) {
    const Colour white{1, 1, 1};
    Canvas canvas(4, 4, {}, {});
    canvas.triangle({-9, -9, 0, white}, {1.5, -9, 0, white}, {1.5, 99, 0, white});
    canvas.triangle({-9, -9, 0, white}, {1.5, 99, 0, white}, {-9, 99, 0, white});
    EXPECT_EQ(pixel(canvas.image(), 0, 2).red, 255);
    EXPECT_EQ(pixel(canvas.image(), 1, 2).red, 128);
    EXPECT_EQ(pixel(canvas.image(), 2, 2).red, 0);
}

TEST(Canvas, BearsPointsThatAreNowhere) {
    Canvas canvas(8, 8, {}, {});
    const double infinity = HUGE_VAL;
    canvas.triangle({infinity, 0, 0, {}}, {1, 1, 0, {}}, {2, 0, 0, {}});
    canvas.triangle({std::nan(""), 0, 0, {}}, {1, 1, 0, {}}, {2, 0, 0, {}});
    canvas.triangle({1, 1, 0, {}}, {1, 1, 0, {}}, {1, 1, 0, {}});
    canvas.triangle({-1e15, -1e15, 0, {1, 1, 1}}, {1e15, -1e15, 0, {1, 1, 1}},
                    {0, 1e15, 0, {1, 1, 1}});
    canvas.line({0, 0, 0, {}}, {infinity, 1, 0, {}}, 2);
    EXPECT_EQ(pixel(canvas.image(), 4, 4).red, 255);
}

TEST(Png, IsWrittenAsItIs) {
    Image image{2, 1, {255, 0, 10, 1, 2, 3}};
    const std::string name = ::testing::TempDir() + "brix_picture.png";
    writePng(image, name);
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&png, name.c_str()));
    png.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(png));
    ASSERT_TRUE(png_image_finish_read(&png, nullptr, bytes.data(), 0, nullptr));
    EXPECT_EQ(bytes, image.rgb);
    std::remove(name.c_str());
    EXPECT_THROW(writePng(image, "/no/such/folder/picture.png"), FileFailure);
}

} // namespace
} // namespace host
