// SPDX-License-Identifier: Apache-2.0
// Whatever happens to the worker, the host lives, knows what it was, and gets the rest.
#include "host/rebuild/rebuild.h"

#include "host/rebuild/progress.h"
#include "platform/process.h"
#include "tests/support/folder.h"
#include "tests/support/temporaryvariables.h"
#include "tests/support/wine.h"

#include <QDir>

namespace host {
namespace {

class Rebuild : public ::testing::Test {
protected:
    void SetUp() override {
        options_.program = FAKE_REBUILD;
        options_.limits.silenceMs =
            testsupport::runsByWine() ? 5000 : 1000; // starts are slow there
        // Whatever is left behind is left here.
        for (const char* variable : testsupport::temporaryVariables) {
            temporary_.push_back(qgetenv(variable));
            qputenv(variable, QFile::encodeName(scratch_.path()));
        }
    }
    void TearDown() override {
        EXPECT_TRUE(QDir(scratch_.path()).entryList({"brix*", "host_*", "*rebuild*"}).isEmpty());
        EXPECT_TRUE(platform::descendants().empty());
        qunsetenv("BRIX_FAKE_REBUILD");
        for (std::size_t i = 0; i < temporary_.size(); ++i) {
            const char* variable = testsupport::temporaryVariables[i];
            temporary_[i].isNull() ? qunsetenv(variable) : qputenv(variable, temporary_[i]);
        }
    }

    RebuildOutcome rebuildWith(const char* fates) {
        qputenv("BRIX_FAKE_REBUILD", fates);
        return rebuild(record_, options_);
    }

    testsupport::Folder scratch_;
    std::vector<QByteArray> temporary_; ///< the variables as they were
    ImportRecord record_{{ModelRecord{}}, {}, {}};
    RebuildOptions options_;
};

/// Of the one model; -1 when there isn't one.
int facesBuilt(const RebuildOutcome& outcome) {
    return outcome.models.size() == 1 ? outcome.models[0].faces : -1;
}

std::vector<Identifier> facesIn(const std::vector<DroppedRecord>& dropped) {
    std::vector<Identifier> faces;
    for (const DroppedRecord& drop : dropped) {
        if (drop.what == "face") faces.push_back(drop.identifier);
    }
    return faces;
}

TEST_F(Rebuild, GivesWhatTheWorkerTells) {
    const RebuildOutcome outcome = rebuildWith("");
    EXPECT_TRUE(outcome.failure.isEmpty());
    EXPECT_EQ(facesBuilt(outcome), 5);
    ASSERT_EQ(outcome.dropped.size(), 1U);
    EXPECT_EQ(outcome.dropped[0].what, "edge");
    EXPECT_EQ(outcome.dropped[0].why, "the fake does not like it");
}

TEST_F(Rebuild, TellsEachStepAndHowFarItIs) {
    for (Identifier face = 11; face <= 15; ++face) record_.models[0].faces[face] = {};
    std::string told;
    options_.stepBegun = [&](const Step& step, int number, int count) {
        if (step.what != "face") return;
        told += std::to_string(step.identifier) + " is " + std::to_string(number) + " of " +
                std::to_string(count) + ", ";
    };
    rebuildWith("13:crash");
    EXPECT_EQ(told, "11 is 1 of 5, 12 is 2 of 5, 13 is 3 of 5, "
                    "11 is 1 of 5, 12 is 2 of 5, 14 is 3 of 5, 15 is 4 of 5, ");
}

/// What stands between is a program of the shell, which Windows hasn't got.
TEST_F(Rebuild, EndsAWorkerThatAnotherProgramHasStarted) {
    if (!QFile::exists("/bin/sh")) GTEST_SKIP() << "there is no shell here";
    const QString id = scratch_.path("id");
    options_.program = scratch_.write("wrapper", "#!/bin/sh\n" FAKE_REBUILD " \"$@\" &\n" //
                                                 "echo $! > " +
                                                     id.toUtf8() + "\nwait\n");
    QFile::setPermissions(options_.program, QFile::ReadOwner | QFile::ExeOwner);
    options_.tries = 1;
    rebuildWith("13:hang");
    EXPECT_FALSE(platform::isProcessAlive(scratch_.read("id").trimmed().toUInt()));
}

TEST_F(Rebuild, LosesTheFaceThatTheWorkerDiesOfAndNothingElse) {
    const std::pair<const char*, const char*> deaths[] = {
        {"crash", "the geometry kernel crashed while building it"},
        {"hang", "building it made no progress for"},
        {"slow", "building it took more than 30 s of processor time"},
        {"memory", "building it took more than 4096 MB"},
        {"quit", "crashed"}};
    for (const auto& [fate, reason] : deaths) {
        SCOPED_TRACE(fate);
        const RebuildOutcome outcome = rebuildWith((QByteArray("13:") + fate).constData());
        EXPECT_TRUE(outcome.failure.isEmpty()) << outcome.failure.toStdString();
        EXPECT_EQ(facesBuilt(outcome), 4);
        ASSERT_EQ(facesIn(outcome.dropped), std::vector<Identifier>{13});
        EXPECT_NE(outcome.dropped[0].why.find(reason), std::string::npos) << outcome.dropped[0].why;
    }
}

TEST_F(Rebuild, WaitsForAWorkerThatSaysThatItIsAtWork) {
    if (testsupport::runsByWine()) GTEST_SKIP() << "the limit is longer than the work here";
    const RebuildOutcome outcome = rebuildWith("13:busy");
    EXPECT_TRUE(facesIn(outcome.dropped).empty());
    EXPECT_EQ(facesBuilt(outcome), 5);
}

TEST_F(Rebuild, NamesSeveralDeadlyFaces) {
    const RebuildOutcome outcome = rebuildWith("11:crash 12:memory 15:crash");
    EXPECT_EQ(facesIn(outcome.dropped), (std::vector<Identifier>{11, 12, 15}));
    EXPECT_EQ(facesBuilt(outcome), 2);
}

TEST_F(Rebuild, ReadsPastChatter) {
    const RebuildOutcome outcome = rebuildWith("12:garbage");
    EXPECT_TRUE(outcome.failure.isEmpty());
    EXPECT_EQ(facesBuilt(outcome), 5);
}

TEST_F(Rebuild, GivesUpAfterSoManyTries) {
    options_.tries = 2;
    const RebuildOutcome outcome = rebuildWith("11:crash 12:crash 13:crash");
    EXPECT_FALSE(outcome.failure.isEmpty());
    EXPECT_EQ(facesIn(outcome.dropped), (std::vector<Identifier>{11, 12}));
}

TEST_F(Rebuild, DoesNotCareHowAWorkerEndsThatIsDone) {
    for (const char* fates : {"99:crash", "99:hang"}) {
        const RebuildOutcome outcome = rebuildWith(fates);
        EXPECT_TRUE(outcome.failure.isEmpty());
        EXPECT_EQ(outcome.dropped.size(), 1U);
        EXPECT_EQ(facesBuilt(outcome), 5);
    }
}

TEST_F(Rebuild, EndsWhenTheTimeIsUp) {
    const RebuildOutcome outcome = rebuildWith("12:late");
    EXPECT_EQ(outcome.failure, "rebuilding solids took more than 120 s of processor time");
    EXPECT_TRUE(facesIn(outcome.dropped).empty());
}

TEST_F(Rebuild, StopsWhenAsked) {
    options_.limits.silenceMs = 60000;
    int asked = 0;
    options_.stopRequested = [&] { return ++asked > 3; };
    const RebuildOutcome outcome = rebuildWith("12:hang");
    EXPECT_EQ(outcome.failure, "rebuilding solids was stopped");
    EXPECT_TRUE(facesIn(outcome.dropped).empty());
}

TEST_F(Rebuild, SaysThatThereIsNoWorker) {
    for (const QString& program : {QString(), scratch_.path("nothing"), scratch_.path()}) {
        options_.program = program;
        options_.picture = scratch_.path("picture.png");
        const RebuildOutcome outcome = rebuild(record_, options_);
        EXPECT_FALSE(outcome.failure.isEmpty());
        EXPECT_TRUE(outcome.models.empty());
        ASSERT_EQ(outcome.dropped.size(), 1U);
        EXPECT_EQ(outcome.dropped[0].what, "picture");
    }
}

TEST_F(Rebuild, SaysThatTheWorkerRefused) {
    const RebuildOutcome outcome = rebuildWith("misuse");
    EXPECT_FALSE(outcome.failure.isEmpty());
    EXPECT_TRUE(outcome.dropped.empty());
}

TEST_F(Rebuild, DeliversThePictureInPlaceOfAnOldOne) {
    options_.picture = scratch_.path("shot.png");
    scratch_.write("shot.png", "old");
    const RebuildOutcome outcome = rebuildWith("14:crash");
    EXPECT_TRUE(outcome.pictureWritten);
    EXPECT_EQ(scratch_.read("shot.png"), "made by the fake");
}

TEST_F(Rebuild, KeepsTheMeasuresWhenThePictureIsDeadly) {
    options_.picture = scratch_.path("shot.png");
    const RebuildOutcome outcome = rebuildWith("0:crash");
    EXPECT_EQ(facesBuilt(outcome), 5);
    EXPECT_FALSE(outcome.pictureWritten);
    EXPECT_FALSE(QFile::exists(options_.picture));
    ASSERT_FALSE(outcome.dropped.empty());
    EXPECT_EQ(outcome.dropped[0].what, "picture");
}

TEST_F(Rebuild, NamesAPlaceWhereNoPictureCanBe) {
    for (const QString& place : {scratch_.path("no/such/folder/shot.png"), scratch_.path()}) {
        options_.picture = place;
        const RebuildOutcome outcome = rebuildWith("");
        EXPECT_FALSE(outcome.pictureWritten);
        ASSERT_EQ(outcome.models.size(), 1U);
        EXPECT_EQ(outcome.dropped.back().what, "picture");
    }
    EXPECT_TRUE(scratch_.has("")) << "the folder stays";
}

} // namespace
} // namespace host
