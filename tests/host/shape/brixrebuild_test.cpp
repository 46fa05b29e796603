// SPDX-License-Identifier: Apache-2.0
// The host and its real worker together.
#include "host/modelling/recordfile.h"
#include "host/rebuild/rebuild.h"
#include "host/rebuild/workerlines.h"
#include "tests/host/shape/recordofshape.h"
#include "tests/server/shapes.h"
#include "tests/support/folder.h"

#include <QProcess>

namespace host {
namespace {

using namespace server::testing;

class BrixRebuild : public ::testing::Test {
protected:
    BrixRebuild() {
        options_.program = BRIX_REBUILD;
        options_.limits.memoryBytes = 0; // sanitizers reserve far more than they use
    }
    int exitCode(const QStringList& arguments) const {
        QProcess process;
        process.start(BRIX_REBUILD, arguments);
        process.waitForFinished();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    testsupport::Folder folder_;
    ImportRecord record_{{recordOfShape(box())}, {}, {}};
    RebuildOptions options_;
};

TEST_F(BrixRebuild, BuildsMeasuresDrawsAndExports) {
    record_.models.push_back(recordOfShape(shapeNamed("Sphere")));
    options_.picture = folder_.path("shot.png");
    options_.exportFile = folder_.path("model.step");
    options_.pictureWidth = 64;
    options_.pictureHeight = 48;
    const RebuildOutcome outcome = rebuild(record_, options_);
    EXPECT_TRUE(outcome.failure.isEmpty()) << outcome.failure.toStdString();
    EXPECT_TRUE(outcome.dropped.empty()) << outcome.dropped[0].why;
    ASSERT_EQ(outcome.models.size(), 2U);
    EXPECT_EQ(outcome.models[0].faces, 6);
    EXPECT_NEAR(outcome.models[0].volumeM3, 6e-6, 1e-14);
    EXPECT_EQ(outcome.models[1].valid, true);
    EXPECT_TRUE(outcome.pictureWritten);
    EXPECT_TRUE(outcome.exportWritten);
    EXPECT_EQ(folder_.read("shot.png").left(8), QByteArray::fromHex("89504e470d0a1a0a"));
    EXPECT_TRUE(folder_.read("model.step").startsWith("ISO-10303-21;"));
}

TEST_F(BrixRebuild, EndsByItselfWhenItsProcessorTimeIsUp) {
    record_.models.assign(400, recordOfShape(shapeNamed("Vase")));
    options_.limits.timeMs = 200;
    const RebuildOutcome outcome = rebuild(record_, options_);
    EXPECT_TRUE(outcome.failure.contains("processor time")) << outcome.failure.toStdString();
    EXPECT_LT(outcome.models.size(), record_.models.size());
}

TEST_F(BrixRebuild, NamesWhatItDropsAndDeliversTheRest) {
    ModelRecord& model = record_.models[0];
    const Identifier face = model.shells[0].faces[3];
    model.faces[face].surface =
        std::make_shared<const SurfaceRecord>(SphereRecord{FrameRecord{}, HUGE_VAL});
    options_.exportFile = folder_.path("model.xyz");
    const RebuildOutcome outcome = rebuild(record_, options_);
    ASSERT_EQ(outcome.models.size(), 1U);
    EXPECT_EQ(outcome.models[0].faces, 5);
    EXPECT_FALSE(outcome.models[0].closed);
    ASSERT_EQ(outcome.dropped.size(), 2U);
    EXPECT_EQ(outcome.dropped[0].what, "face");
    EXPECT_EQ(outcome.dropped[0].identifier, face);
    EXPECT_EQ(outcome.dropped[1].what, "export");
    EXPECT_FALSE(outcome.exportWritten);
}

TEST_F(BrixRebuild, TellsByItsExitCodeWhatWasWrongWithTheCall) {
    EXPECT_EQ(exitCode({}), workerMisused);
    EXPECT_EQ(exitCode({folder_.path("none")}), workerRecordUnreadable);
    const QString junk = folder_.write("junk", "junk");
    EXPECT_EQ(exitCode({junk}), workerRecordUnreadable);
    EXPECT_EQ(exitCode({junk, "--size", "12"}), workerMisused);
    EXPECT_EQ(exitCode({junk, "--skip", "face"}), workerMisused);
    EXPECT_EQ(exitCode({"--help"}), 0);
}

TEST_F(BrixRebuild, SkipsWhatItIsTold) {
    QFile file(folder_.path("record"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writeRecord(file, record_));
    file.close();
    QProcess process;
    const Identifier face = record_.models[0].shells[0].faces[0];
    process.start(BRIX_REBUILD, {file.fileName(), "--skip", stepArgument({1, "face", face}),
                                 "--skip", "0/picture/0", "--picture", folder_.path("shot.png")});
    ASSERT_TRUE(process.waitForFinished());
    int faces = 0;
    bool isDone = false;
    for (const QByteArray& bytes : process.readAllStandardOutput().split('\n')) {
        const WorkerLine line = parseWorkerLine(bytes);
        if (const auto* model = std::get_if<RebuiltModel>(&line)) faces = model->faces;
        isDone = isDone || std::holds_alternative<WorkDone>(line);
    }
    EXPECT_EQ(faces, 5);
    EXPECT_TRUE(isDone);
    EXPECT_FALSE(folder_.has("shot.png"));
}

} // namespace
} // namespace host
