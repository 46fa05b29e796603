// SPDX-License-Identifier: Apache-2.0
// The lines of the worker, there and back.
#include "host/rebuild/workerlines.h"

#include <gtest/gtest.h>

namespace host {
namespace {

template <class Line> Line back(const Line& line) {
    const QByteArray bytes = workerLine(line);
    EXPECT_EQ(bytes.count('\n'), 1);
    EXPECT_TRUE(bytes.endsWith('\n'));
    const WorkerLine parsed = parseWorkerLine(bytes);
    EXPECT_TRUE(std::holds_alternative<Line>(parsed)) << bytes.constData();
    return std::holds_alternative<Line>(parsed) ? std::get<Line>(parsed) : Line{};
}

TEST(WorkerLines, CarryStepsAndDrops) {
    const Step step = back(Step{2, "face", 300});
    EXPECT_EQ(back(AtWork{5'000'000'000}).processorMs, 5'000'000'000);
    EXPECT_EQ(step.model, 2);
    EXPECT_EQ(step.what, "face");
    EXPECT_EQ(step.identifier, 300);
    const DroppedRecord drop =
        back(DroppedRecord{"edge", -7, "line\nbreak, \"quotes\", \xC3\xBC", 2});
    EXPECT_EQ(drop.model, 2);
    EXPECT_EQ(drop.what, "edge");
    EXPECT_EQ(drop.identifier, -7);
    EXPECT_EQ(drop.why, "line\nbreak, \"quotes\", \xC3\xBC");
    EXPECT_EQ(back(WorkerNote{{"check", 8, "not checked", 1}}).note.identifier, 8);
}

TEST(WorkerLines, CarryModelsToTheLastDigit) {
    RebuiltModel model{6, 12, 1, true, false, 1.0 / 3.0, 2.0 / 7.0, {-1, 0.1, 1e-9, 1, 2, 3}, {}};
    const RebuiltModel other = back(model);
    EXPECT_EQ(other.faces, 6);
    EXPECT_EQ(other.edges, 12);
    EXPECT_EQ(other.shells, 1);
    EXPECT_TRUE(other.closed);
    EXPECT_EQ(other.valid, false);
    model.valid.reset();
    EXPECT_EQ(back(model).valid, std::nullopt);
    EXPECT_EQ(back(FaceMeasure{7, 1.0 / 3.0, -2.0 / 7.0}).volumeM3, -2.0 / 7.0);
    EXPECT_EQ(other.areaM2, model.areaM2);
    EXPECT_EQ(other.volumeM3, model.volumeM3);
    EXPECT_EQ(other.boundingBoxM, model.boundingBoxM);
}

TEST(WorkerLines, TellTheFilesApart) {
    EXPECT_TRUE(back(WrittenFile{true}).isPicture);
    EXPECT_FALSE(back(WrittenFile{false}).isPicture);
    back(WorkDone{});
}

TEST(WorkerLines, TakeChatterForNothing) {
    for (const char* text : {"", "\n", "** WorkSession : Sending all data\n", "{}", "[1,2]", "{\"x",
                             "{\"result\":\"something\"}"}) {
        EXPECT_TRUE(std::holds_alternative<std::monostate>(parseWorkerLine(text))) << text;
    }
}

TEST(StepArgument, GoesThereAndBack) {
    const auto step = parseStepArgument(stepArgument({3, "edge", -513}));
    ASSERT_TRUE(step);
    EXPECT_EQ(step->model, 3);
    EXPECT_EQ(step->what, "edge");
    EXPECT_EQ(step->identifier, -513);
    for (const char* bad : {"", "1/face", "x/face/1", "1/face/y", "1//1", "1/face/1/1"}) {
        EXPECT_FALSE(parseStepArgument(bad)) << bad;
    }
}

} // namespace
} // namespace host
