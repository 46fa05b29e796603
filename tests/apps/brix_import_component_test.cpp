// SPDX-License-Identifier: Apache-2.0
// brix-import with the real component, on model files made here and with servers that fail.
#include "tests/apps/brixprocess.h"
#include "tests/apps/modelfile.h"
#include "tests/apps/serverend.h"

#include "platform/clock.h"

#include <QElapsedTimer>

namespace apps {
namespace {

class ComponentTest : public BrixImportTest {
protected:
    ComponentTest() { directory.write("part.step"); }

    ImportResult importFile(const QStringList& more = {}) {
        return run(QStringList{"--no-server", "--output-base", base, "--json"} + more);
    }
    /// A model file of a sphere for each unit, the last of which may lack its end.
    void writeModels(std::initializer_list<double> units, bool whole = true) const {
        ModelFile file(base + ".direct");
        for (const double& unit : units) {
            file.begin(unit), file.addSphere();
            if (whole || &unit + 1 != units.end()) file.end();
        }
    }
};

TEST_F(ComponentTest, ReadsAndRemovesAModelFileOfTwoModels) {
    writeModels({25.4, 1000.0});
    const ImportResult result = importFile({"--trace", directory.path("trace")});
    EXPECT_EQ(result.status, 0) << result.output << result.errors;
    const Json json = result.json();
    EXPECT_EQ(json["result"], false) << "there are neither exported files nor coordinate systems";
    EXPECT_EQ(json["hasResults"], true);
    EXPECT_EQ(json["server"], nullptr);
    ASSERT_EQ(json["models"].size(), 2u);
#ifdef BRIX_REBUILDS
    const double ball = 4 * std::numbers::pi / 3;
    EXPECT_NEAR(json["models"][0]["volume"].get<double>(), ball * std::pow(0.0254, 3), 1e-10);
    EXPECT_NEAR(json["models"][1]["volume"].get<double>(), ball, 1e-5);
#endif
    EXPECT_FALSE(hasModelFile());

    const QByteArray lines = directory.read("trace");
    EXPECT_TRUE(lines.startsWith("[\"importer\",\"beginModel\",[true,0.001]]\n")) << lines.data();
    EXPECT_EQ(lines.count("\"transform\""), 2) << "a model in metres needs none";
    EXPECT_EQ(lines.count("[\"model\",\"modelEntry\",[]]\n"), 2);
}

/// The sample part as the reference server wrote it once, and the calls that it comes to.
TEST_F(ComponentTest, TurnsAPreparedFileIntoTheSameCallsOnEverySystem) {
    const QString golden = GOLDEN_DIRECTORY;
    const ImportResult result =
        run(serving({"-FakeCopy", golden + "/bracket.direct", base + ".direct"})
            << "--trace" << directory.path("trace"));
    EXPECT_EQ(result.status, 0) << result.output << result.errors;
    EXPECT_FALSE(hasModelFile());

    QFile calls(golden + "/bracket.trace");
    ASSERT_TRUE(calls.open(QIODevice::ReadOnly));
    const QList<QByteArray> expected = calls.readAll().split('\n');
    const QList<QByteArray> lines = directory.read("trace").split('\n');
    ASSERT_EQ(lines.size(), expected.size());
    for (int i = 0; i < lines.size(); ++i) ASSERT_EQ(lines[i], expected[i]) << "line " << i + 1;
}

TEST_F(ComponentTest, NamesAModelThatWasCutOffBesideAWholeOne) {
    writeModels({1, 1}, false);
    const ImportResult result = importFile();
    EXPECT_EQ(result.status, 4) << result.errors;
    EXPECT_EQ(result.json()["models"].size(), 1u);
    EXPECT_EQ(result.json()["dropped"][0]["why"], "it was cut off before its end");
    EXPECT_FALSE(hasModelFile());
}

TEST_F(ComponentTest, NamesATraceThatCouldNotBeWritten) {
    if (!QFile::exists("/dev/full")) GTEST_SKIP() << "no device here that is always full";
    writeModels({1});
    const ImportResult result = importFile({"--trace", "/dev/full"});
    EXPECT_EQ(result.status, 4) << result.errors;
    EXPECT_EQ(result.json()["dropped"][0]["what"], "trace");
}

TEST_F(ComponentTest, TellsTheLossesWhereTheReportCanNotBeWritten) {
    if (!QFile::exists("/dev/full")) GTEST_SKIP() << "no device here that is always full";
    writeModels({1}, false);
    process.setStandardOutputFile("/dev/full");
    const ImportResult result = importFile();
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.says("the report can't be written: standard output")) << result.errors;
    EXPECT_TRUE(result.says("cut off before its end")) << result.errors;
}

TEST_F(ComponentTest, LeavesAModelFileThatIsNoFile) {
    ASSERT_TRUE(QDir().mkdir(base + ".direct"));
    const ImportResult result = importFile();
    EXPECT_EQ(result.status, 1) << result.errors;
    EXPECT_TRUE(hasModelFile());
}

TEST_F(ComponentTest, SaysThatThereIsNoModelFile) {
    const ImportResult result = importFile();
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.says("there is no model file " + base.toStdString())) << result.errors;
}

TEST_F(ComponentTest, LeavesTheFileAloneWithoutAnImporter) {
    writeModels({1}, false);
    const ImportResult result = importFile({"--without", "IZelCADImporter"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.says("there is no importer")) << result.errors;
    EXPECT_TRUE(hasModelFile());
}

TEST_F(ComponentTest, GivesAReasonForEachWayInWhichAServerLeavesNoModel) {
    const QString garbage = directory.write("garbage", "no records at all");
    const QString empty = directory.write("empty");
    const std::pair<QStringList, std::string> cases[] = {
        {{}, "the server came to its end and left neither a model file nor a report"},
        {{"-FakeCrash"},
         serverEnd("the server crashed") + " and left neither a model file nor a report"},
        {{"-FakeExit", "7"}, serverEnd("the server ended with exit code 7") + " and left neither"},
        {{"-FakeCopy", garbage, base + ".direct"},
         "the model file holds no model that can be read (17 bytes)"},
        {{"-FakeCopy", empty, base + ".direct"}, "the model file is empty"},
        {{"-FakeCopy", garbage, base + ".report.json"},
         "the server came to its end and left neither"},
    };
    for (const auto& [deeds, reason] : cases) {
        const ImportResult result = run(serving(deeds));
        EXPECT_EQ(result.status, 1) << reason;
        EXPECT_TRUE(result.says(reason)) << result.errors;
        EXPECT_FALSE(hasModelFile());
    }
}

TEST_F(ComponentTest, EndsWithStatusThreeWhenTheServerDoesNotStart) {
    QStringList words = serving({});
    words[words.indexOf(FAKE_SERVER)] = "/no/such/server";
    const ImportResult told = run(words);
    EXPECT_EQ(told.status, 3);
    EXPECT_TRUE(told.says("/no/such/server: no such file")) << told.errors;
    const ImportResult silent = run(words + QStringList{"--without", "IGuiSimpleDlg"});
    EXPECT_EQ(silent.status, 1) << "nobody could be told, so that the run went on";
    EXPECT_TRUE(silent.says("no such file")) << silent.errors;
}

TEST_F(ComponentTest, HandsTheOptionListToTheServerInOrder) {
    const QString report = directory.path("words");
    run(serving({"-FakeReport", report}) + QStringList{"--set", "General/Show Batch Processing=1"});
    const QString words = QString::fromUtf8(directory.read("words"));
    EXPECT_TRUE(words.startsWith("-InputFile\n" + part + "\n-OutputBaseName\n" + base +
                                 "\n-FakeReport\n" + report + "\n-Batch\n"))
        << words.toStdString();
}

TEST_F(ComponentTest, RemovesWhatAServerThatDiedLeftHalfMade) {
    QStringList deeds;
    for (const char* half : {".direct.partial", ".igs.partial", ".report.json.partial"}) {
        deeds << "-FakeCopy" << part << base + half;
    }
    EXPECT_EQ(run(serving(deeds << "-FakeCrash")).status, 1);
    EXPECT_EQ(QDir(directory.path()).entryList({"*.partial"}), QStringList());
}

TEST_F(ComponentTest, RemovesTheFolderOfAHostThatWasKilledAndOfNobodyElse) {
    start(serving({"-FakeReport", directory.path("up"), "-FakeSleep", "2000"}));
    while (!directory.has("up") && process.state() != QProcess::NotRunning) platform::sleep(20);
    process.kill();
    process.waitForFinished(limitMs);
    ASSERT_EQ(leftBehind().size(), 1);
    const QString mark = QString::fromStdString(platform::processMark(platform::processId()));
    const QStringList others{"brix-" + mark + "-Living", "brix-of-mine"};
    for (const QString& other : others) QDir(temporary.path()).mkdir(other);
    EXPECT_EQ(run(serving({})).status, 1);
    EXPECT_EQ(leftBehind(), others);
}

TEST_F(ComponentTest, RefusesABaseThatAnotherImportUses) {
    start(serving({"-FakeReport", directory.path("up"), "-FakeSleep", "60000"}));
    while (!directory.has("up") && process.state() != QProcess::NotRunning) platform::sleep(20);
    QProcess second;
    second.setProcessEnvironment(environment());
    second.start(BRIX_IMPORT, serving({}));
    const ProgramResult result = finish(second);
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.says(base.toStdString() + " is in use by ")) << result.errors;
#ifndef _WIN32 // where nobody reads a file that is locked
    EXPECT_TRUE(result.says("by process " + std::to_string(process.processId()))) << result.errors;
#endif
    process.kill();
    process.waitForFinished(limitMs);
    EXPECT_EQ(run(serving({})).status, 1) << "a dead process holds nothing";
    EXPECT_FALSE(directory.has("part.lock"));
}

TEST_F(ComponentTest, StopsAServerThatHangsAndLeavesNothing) {
    QElapsedTimer timer;
    timer.start();
    const ImportResult result = interrupt(serving({"-FakeSleep", "50000"}));
    EXPECT_LT(timer.elapsed(), 20000);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.says("the import was stopped on request")) << result.errors;
    EXPECT_EQ(leftBehind(), QStringList());
}

} // namespace
} // namespace apps
