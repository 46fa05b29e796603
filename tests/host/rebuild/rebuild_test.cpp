// SPDX-License-Identifier: Apache-2.0
// Whatever happens to the worker, the host lives, knows what it was, and gets the rest.
#include "host/rebuild/rebuild.h"

#include "platform/process.h"
#include "tests/support/temporaryvariables.h"
#include "tests/support/wine.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace host {
namespace {

class Rebuild : public ::testing::Test {
protected:
    void SetUp() override {
        options_.program = FAKE_REBUILD;
        options_.stepLimitMs = testsupport::runsByWine() ? 5000 : 1000; // starts are slow there
        // Whatever is left behind is left here.
        for (const char* variable : testsupport::temporaryVariables) {
            temporary_.push_back(qgetenv(variable));
            qputenv(variable, QFile::encodeName(scratch_.path()));
        }
    }
    void TearDown() override {
        EXPECT_TRUE(QDir(scratch_.path()).entryList({"brix*", "host_*", "*rebuild*"}).isEmpty());
        EXPECT_TRUE(platform::childProcesses().empty());
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
    QString inScratch(const char* name) const { return scratch_.filePath(name); }

    QTemporaryDir scratch_;
    std::vector<QByteArray> temporary_; ///< the variables as they were
    ImportRecord record_{{ModelRecord{}}, {}, {}};
    RebuildOptions options_;
};

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
    ASSERT_EQ(outcome.models.size(), 1U);
    EXPECT_EQ(outcome.models[0].faces, 5);
    ASSERT_EQ(outcome.dropped.size(), 1U);
    EXPECT_EQ(outcome.dropped[0].what, "edge");
    EXPECT_EQ(outcome.dropped[0].why, "the fake does not like it");
}

struct Death {
    const char* fate;
    const char* reason;
};

class RebuildDeaths : public Rebuild, public ::testing::WithParamInterface<Death> {};

TEST_P(RebuildDeaths, CostTheFaceAndNothingElse) {
    const QByteArray fates = QByteArray("13:") + GetParam().fate;
    const RebuildOutcome outcome = rebuildWith(fates.constData());
    EXPECT_TRUE(outcome.failure.isEmpty()) << outcome.failure.toStdString();
    ASSERT_EQ(outcome.models.size(), 1U);
    EXPECT_EQ(outcome.models[0].faces, 4);
    ASSERT_EQ(facesIn(outcome.dropped), std::vector<Identifier>{13});
    EXPECT_NE(outcome.dropped[0].why.find(GetParam().reason), std::string::npos)
        << outcome.dropped[0].why;
}

INSTANTIATE_TEST_SUITE_P(Worker, RebuildDeaths,
                         ::testing::Values(Death{"crash", "crashed"}, Death{"hang", "end"},
                                           Death{"memory", "memory"}, Death{"quit", "crashed"}),
                         [](const auto& each) { return std::string(each.param.fate); });

TEST_F(Rebuild, NamesSeveralDeadlyFaces) {
    const RebuildOutcome outcome = rebuildWith("11:crash 12:memory 15:crash");
    EXPECT_EQ(facesIn(outcome.dropped), (std::vector<Identifier>{11, 12, 15}));
    ASSERT_EQ(outcome.models.size(), 1U);
    EXPECT_EQ(outcome.models[0].faces, 2);
}

TEST_F(Rebuild, ReadsPastChatter) {
    const RebuildOutcome outcome = rebuildWith("12:garbage");
    EXPECT_TRUE(outcome.failure.isEmpty());
    ASSERT_EQ(outcome.models.size(), 1U);
    EXPECT_EQ(outcome.models[0].faces, 5);
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
        ASSERT_EQ(outcome.models.size(), 1U);
        EXPECT_EQ(outcome.models[0].faces, 5);
    }
}

TEST_F(Rebuild, EndsWhenTheTimeIsUp) {
    options_.timeLimitMs = 300;
    options_.stepLimitMs = 60000;
    QElapsedTimer time;
    time.start();
    const RebuildOutcome outcome = rebuildWith("12:hang");
    EXPECT_LT(time.elapsed(), 5000);
    EXPECT_FALSE(outcome.failure.isEmpty());
}

TEST_F(Rebuild, StopsWhenAsked) {
    options_.stepLimitMs = 60000;
    int asked = 0;
    options_.stopRequested = [&] { return ++asked > 3; };
    const RebuildOutcome outcome = rebuildWith("12:hang");
    EXPECT_EQ(outcome.failure, "rebuilding solids was stopped");
    EXPECT_TRUE(facesIn(outcome.dropped).empty());
}

TEST_F(Rebuild, SaysThatThereIsNoWorker) {
    for (const QString& program : {QString(), inScratch("nothing"), scratch_.path()}) {
        options_.program = program;
        options_.picture = inScratch("picture.png");
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
    options_.picture = inScratch("shot.png");
    QFile old(options_.picture);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    const RebuildOutcome outcome = rebuildWith("14:crash");
    EXPECT_TRUE(outcome.pictureWritten);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "made by the fake");
}

TEST_F(Rebuild, KeepsTheMeasuresWhenThePictureIsDeadly) {
    options_.picture = inScratch("shot.png");
    const RebuildOutcome outcome = rebuildWith("0:crash");
    ASSERT_EQ(outcome.models.size(), 1U);
    EXPECT_EQ(outcome.models[0].faces, 5);
    EXPECT_FALSE(outcome.pictureWritten);
    EXPECT_FALSE(QFile::exists(options_.picture));
    ASSERT_FALSE(outcome.dropped.empty());
    EXPECT_EQ(outcome.dropped[0].what, "picture");
}

TEST_F(Rebuild, NamesAFolderThatIsNotThere) {
    options_.picture = inScratch("no/such/folder/shot.png");
    const RebuildOutcome outcome = rebuildWith("");
    EXPECT_FALSE(outcome.pictureWritten);
    ASSERT_EQ(outcome.models.size(), 1U);
    EXPECT_EQ(outcome.dropped.back().what, "picture");
}

} // namespace
} // namespace host
