// SPDX-License-Identifier: Apache-2.0
// The record on its way to the worker: nothing is lost, and nothing bad gets through.
#include "host/modelling/recordfile.h"

#include <QBuffer>
#include <gtest/gtest.h>

namespace host {
namespace {

std::shared_ptr<const CurveRecord> curve(CurveRecord record) {
    return std::make_shared<const CurveRecord>(std::move(record));
}

std::shared_ptr<const SurfaceRecord> surface(SurfaceRecord record) {
    return std::make_shared<const SurfaceRecord>(std::move(record));
}

const FrameRecord frame{{1, 2, 3}, {0, 0, 1}, {1, 0, 0}, {4.5, -1}, {0, 7}};

NurbSurfaceRecord nurb() {
    return {true,
            1,
            1,
            2,
            2,
            {0, 0, 1, 1},
            {0, 0, 2, 2},
            {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 1}},
            {1, 2, 3, 4}};
}

ModelRecord everyKind() {
    ModelRecord model;
    model.absolute = false;
    model.accuracy = 1e-5;
    const auto shared = curve(LineRecord{{1, 2, 3}, {4, 5, 6}});
    model.edges[256] = {{1, 2}, {false, true}, shared};
    model.edges[257] = {{1, 0}, {true, false}, shared};
    model.edges[512] = {{2, 2}, {}, curve(ArcRecord{{1, 1, 1}, {0, 0, 1}, {1, 0, 0}, 2, 0.5, 6})};
    model.edges[768] = {{}, {}, curve(EllipseRecord{{}, {0, 1, 0}, {0, 0, 1}, 3, 2, -1, 1})};
    model.edges[-5] = {};
    model.loops[7] = {{256, 257, 512}, false};
    model.faces[1] = {surface(PlaneRecord{frame}), {7, 8}};
    model.faces[2] = {surface(CylinderRecord{frame, 1.5}), {}};
    model.faces[3] = {surface(ConeRecord{frame, 0.25}), {}};
    model.faces[4] = {surface(SphereRecord{frame, 2.5}), {}};
    model.faces[5] = {surface(TorusRecord{frame, 3, 1}), {}};
    model.faces[6] = {surface(nurb()), {}};
    model.faces[9] = {};
    model.shells = {{3, {-1, -2, -3}, {1, 2, 3}, {1, 2, 3, 4, 5, 6}, true}, {}};
    return model;
}

ImportRecord sample() {
    return {{everyKind(), {}},
            {{{1, 2, 3}, {1, 0, 0}, {0, 1, 0}}},
            {{"edge", -5, "it came without a curve"}, {"", 0, ""}}};
}

QByteArray written(const ImportRecord& record) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(writeRecord(buffer, record));
    return buffer.data();
}

std::optional<ImportRecord> readBack(QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return readRecord(buffer);
}

TEST(RecordFile, GivesBackWhatWasWritten) {
    const QByteArray bytes = written(sample());
    const auto record = readBack(bytes);
    ASSERT_TRUE(record);
    EXPECT_EQ(written(*record), bytes);
    ASSERT_EQ(record->models.size(), 2U);
    const ModelRecord& model = record->models[0];
    EXPECT_FALSE(model.absolute);
    EXPECT_EQ(std::get<TorusRecord>(*model.faces.at(5).surface).uRange, (Range{4.5, -1}));
    EXPECT_EQ(std::get<NurbSurfaceRecord>(*model.faces.at(6).surface).weights[3], 4.0);
    EXPECT_EQ(std::get<EllipseRecord>(*model.edges.at(768).curve).littleHalfAxis, 2.0);
    EXPECT_EQ(model.edges.at(256).curve, model.edges.at(257).curve) << "shared shapes stay shared";
    EXPECT_NE(model.edges.at(256).curve, model.edges.at(512).curve);
    EXPECT_EQ(model.shells[0].boxMin, (ZelVector3{-1, -2, -3}));
    EXPECT_EQ(record->dropped[0].why, "it came without a curve");
}

TEST(RecordFile, RefusesEveryCut) {
    const QByteArray bytes = written(sample());
    for (int length = 0; length < bytes.size(); ++length) {
        EXPECT_FALSE(readBack(bytes.left(length))) << length;
    }
}

TEST(RecordFile, RefusesCountsThatTheBytesCannotHold) {
    const QByteArray bytes = written(sample());
    int survived = 0;
    for (int at = 0; at + 4 <= bytes.size(); ++at) {
        QByteArray bad = bytes;
        bad.replace(at, 4, QByteArray::fromHex("7ffffff0"));
        survived += readBack(bad).has_value();
    }
    // Where it hit a number instead of a count, the record is another one but a record.
    EXPECT_GT(survived, 0);
    EXPECT_LT(survived, bytes.size());
}

TEST(RecordFile, RefusesOtherFiles) {
    EXPECT_FALSE(readBack("ISO-10303-21;\nHEADER;\n"));
    EXPECT_FALSE(readBack({}));
}

} // namespace
} // namespace host
