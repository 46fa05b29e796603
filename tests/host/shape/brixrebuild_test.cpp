// SPDX-License-Identifier: Apache-2.0
// The host and its real worker together.
#include "host/modelling/recordfile.h"
#include "host/rebuild/rebuild.h"
#include "host/rebuild/workerlines.h"
#include "tests/host/shape/recordofshape.h"
#include "tests/host/shape/testshapes.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace host {
namespace {

class BrixRebuild : public ::testing::Test {
protected:
    BrixRebuild() {
        options_.program = BRIX_REBUILD;
        options_.memoryLimitBytes = 0; // sanitizers reserve far more than they use
    }
    QString inFolder(const char* name) const { return folder_.filePath(name); }
    int exitCode(const QStringList& arguments) const {
        QProcess process;
        process.start(BRIX_REBUILD, arguments);
        process.waitForFinished();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QTemporaryDir folder_;
    ImportRecord record_{{recordOfShape(boxShape())}, {}, {}};
    RebuildOptions options_;
};

TEST_F(BrixRebuild, BuildsMeasuresDrawsAndExports) {
    record_.models.push_back(recordOfShape(testShapes()[1].make()));
    options_.picture = inFolder("shot.png");
    options_.exportFile = inFolder("model.step");
    options_.pictureWidth = 64;
    options_.pictureHeight = 48;
    const RebuildOutcome outcome = rebuild(record_, options_);
    EXPECT_TRUE(outcome.failure.isEmpty()) << outcome.failure.toStdString();
    EXPECT_TRUE(outcome.dropped.empty()) << outcome.dropped[0].why;
    ASSERT_EQ(outcome.models.size(), 2U);
    EXPECT_EQ(outcome.models[0].faces, 6);
    EXPECT_NEAR(outcome.models[0].volumeM3, 6e-6, 1e-14);
    EXPECT_TRUE(outcome.models[1].valid);
    EXPECT_TRUE(outcome.pictureWritten);
    EXPECT_TRUE(outcome.exportWritten);
    QFile picture(options_.picture), step(options_.exportFile);
    ASSERT_TRUE(picture.open(QIODevice::ReadOnly));
    EXPECT_EQ(picture.read(8), QByteArray::fromHex("89504e470d0a1a0a"));
    ASSERT_TRUE(step.open(QIODevice::ReadOnly));
    EXPECT_TRUE(step.readAll().startsWith("ISO-10303-21;"));
}

TEST_F(BrixRebuild, NamesWhatItDropsAndDeliversTheRest) {
    ModelRecord& model = record_.models[0];
    const Identifier face = model.shells[0].faces[3];
    model.faces[face].surface =
        std::make_shared<const SurfaceRecord>(SphereRecord{FrameRecord{}, HUGE_VAL});
    options_.exportFile = inFolder("model.xyz");
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
    EXPECT_EQ(exitCode({inFolder("none")}), workerRecordUnreadable);
    QFile file(inFolder("junk"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("junk");
    file.close();
    EXPECT_EQ(exitCode({file.fileName()}), workerRecordUnreadable);
    EXPECT_EQ(exitCode({file.fileName(), "--size", "12"}), workerMisused);
    EXPECT_EQ(exitCode({file.fileName(), "--skip", "face"}), workerMisused);
    EXPECT_EQ(exitCode({"--help"}), 0);
}

TEST_F(BrixRebuild, SkipsWhatItIsTold) {
    QFile file(inFolder("record"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writeRecord(file, record_));
    file.close();
    QProcess process;
    const Identifier face = record_.models[0].shells[0].faces[0];
    process.start(BRIX_REBUILD, {file.fileName(), "--skip", stepArgument({1, "face", face}),
                                 "--skip", "0/picture/0", "--picture", inFolder("shot.png")});
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
    EXPECT_FALSE(QFile::exists(inFolder("shot.png")));
}

} // namespace
} // namespace host
