// SPDX-License-Identifier: Apache-2.0
// The server as a process: what it leaves and how it ends. What damaged files do to it is told by
// the tests with the models of others.
#include "tests/server/serverrun.h"
#include "tests/server/shapes.h"
#include "tests/server/wirecheck.h"
#include "tests/support/addressspace.h"

#include <BRepBuilderAPI_Copy.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <IGESControl_Reader.hxx>
#include <IGESControl_Writer.hxx>
#include <Interface_Static.hxx>
#include <STEPControl_Controller.hxx>
#include <STEPControl_Writer.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>
#include <gp_Pln.hxx>

#include <QDir>
#include <QElapsedTimer>

#include <nlohmann/json.hpp>

#include <csignal>

namespace server::testing {
namespace {

using Json = nlohmann::json;

/// Copies that share nothing, so that a run takes long enough to be stopped.
TopoDS_Compound copies(const TopoDS_Shape& shape, int count) {
    TopoDS_Compound all;
    BRep_Builder builder;
    builder.MakeCompound(all);
    for (int i = 0; i < count; ++i) builder.Add(all, BRepBuilderAPI_Copy(shape).Shape());
    return all;
}

class ServerProcess : public ServerRun {
protected:
    QString path(const QString& name) const { return folder_.path(name); }

    int run(const QStringList& words) {
        start(words);
        return wait();
    }

    int import(const QString& file, const QStringList& more = {}) {
        return run(importing(file) + more);
    }

    QByteArray contents(const QString& name) const { return folder_.read(name); }
    QStringList results() const { return QDir(folder_.path()).entryList({"out*"}, QDir::Files); }

    QString writeStep(const TopoDS_Shape& shape, const char* unit) const {
        STEPControl_Controller::Init();
        Interface_Static::SetCVal("write.step.unit", unit);
        STEPControl_Writer writer;
        writer.Transfer(shape, STEPControl_AsIs);
        writer.Write(path("part.stp").toStdString().c_str());
        return path("part.stp");
    }

    Json report() const { return Json::parse(contents("out.report.json").toStdString()); }
};

TEST_F(ServerProcess, LeavesAWholeModelAndAReport) {
    ASSERT_EQ(import(bracket, {"-Batch", "-igs", "off", "-BodiesOnly", "off"}), 0)
        << errors_.toStdString();
    EXPECT_EQ(results(), QStringList({"out.direct", "out.report.json"}));
    const WireModel model = readWireModel(contents("out.direct"));
    EXPECT_EQ(brokenConventions(model), "");
    EXPECT_EQ(model.faces.size(), 19u);
    EXPECT_EQ(report()["format"], "STEP");
    EXPECT_EQ(report()["unit"]["declared"], true);
    EXPECT_EQ(report()["read"]["face"], 19);
    EXPECT_EQ(report()["written"]["CreateFace"], 19);
    EXPECT_TRUE(report()["dropped"].empty());
    EXPECT_TRUE(report()["notes"].empty());
    EXPECT_EQ(report()["measured"]["faces"].size(), 19u);
    EXPECT_TRUE(errors_.contains("progress 55 % writing faces"));
}

TEST_F(ServerProcess, MeasuresInMillimetresWhatItWrites) {
    ASSERT_EQ(import(writeStep(shapeNamed("BoxWithVoids"), "INCH")), 0) << errors_.toStdString();
    const Json measured = report()["measured"];
    double area = 0.0;
    for (const Json& face : measured["faces"]) {
        area += face["area"].get<double>();
        EXPECT_LT(face["margin"].get<double>(), 1e-3);
    }
    EXPECT_NEAR(area, 2200 + 4 * M_PI * 9 + 4 * M_PI * M_PI * 2.5, 1e-4);
    ASSERT_EQ(measured["bodies"].size(), 1u);
    const Json& body = measured["bodies"][0];
    EXPECT_EQ(body["shells"].size(), 3u);
    EXPECT_NEAR(body["volume"].get<double>(), 6000 - 36 * M_PI - 2 * M_PI * M_PI * 2.5, 1e-3);
    ASSERT_EQ(import(path("part.stp"), {"-Compare", "off"}), 0);
    EXPECT_TRUE(report()["measured"]["faces"].empty());
}

TEST_F(ServerProcess, SaysWhichFacesAreInvalidInTheFile) {
    BRepBuilderAPI_MakePolygon crossed;
    for (const gp_Pnt& corner : {gp_Pnt(0, 0, 0), gp_Pnt(10, 10, 0), gp_Pnt(10, 0, 0)}) {
        crossed.Add(corner);
    }
    crossed.Add(gp_Pnt(0, 4, 0));
    crossed.Close();
    const TopoDS_Face face = BRepBuilderAPI_MakeFace(gp_Pln(), crossed.Wire());
    BRepTools::Write(face, path("crossed.brep").toStdString().c_str());
    ASSERT_EQ(import(path("crossed.brep")), 0) << errors_.toStdString();
    EXPECT_EQ(report()["measured"]["faces"].at(0)["valid"], false) << report().dump(1);
    ASSERT_EQ(import(bracket), 0);
    EXPECT_FALSE(report()["measured"]["faces"][0].contains("valid"));
}

TEST_F(ServerProcess, LosesToABadPointNothingButTheFacesAtIt) {
    const struct {
        const char *place, *point, *badPoint;
        unsigned faces;
    } cases[] = {
        {"a vertex", "(80.,0.,10.)", "(-1.E+300,0.,10.)", 15},
        {"a pole, on which the whole solid fails", ",40.,51.300979374075)",
         "E300,40.,51.300979374075)", 17},
    };
    QFile file(bracket);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray sound = file.readAll();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.place);
        QByteArray text = sound;
        ASSERT_NE(text.replace(c.point, c.badPoint), sound);
        ASSERT_EQ(import(folder_.write("bad.step", text)), 0) << errors_.toStdString();
        const WireModel model = readWireModel(contents("out.direct"));
        EXPECT_EQ(brokenConventions(model), "");
        EXPECT_EQ(model.faces.size(), c.faces);
        EXPECT_GE(model.faces.size() + report()["dropped"].size(), 19u) << report().dump(1);
    }
}

TEST_F(ServerProcess, NotesAFaultInTheHeaderAndNamesOneInTheShape) {
    QFile file(bracket);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray sound = file.readAll();
    QByteArray text = sound;
    ASSERT_EQ(import(folder_.write("author.step", text.replace("(''),(''),''", "(1.5),(''),''"))),
              0);
    EXPECT_TRUE(report()["dropped"].empty()) << report().dump(1);
    EXPECT_EQ(report()["notes"].size(), 1u);
    text = sound;
    ASSERT_EQ(import(folder_.write("syntax.step", text.replace("ADVANCED_FACE('',(#566)",
                                                               "ADVANCED_FACE(('',(#566)"))),
              0);
    EXPECT_FALSE(report()["dropped"].empty());
}

TEST_F(ServerProcess, KeepsTheUnitOfTheFile) {
    const struct {
        const char* name;
        double millimetres;
    } units[] = {{"INCH", 25.4}, {"M", 1000.0}, {"CM", 10.0}};
    for (const auto& unit : units) {
        SCOPED_TRACE(unit.name);
        ASSERT_EQ(import(writeStep(box(), unit.name)), 0);
        const WireModel model = readWireModel(contents("out.direct"));
        EXPECT_NEAR(model.header.unit, unit.millimetres, 1e-9);
        EXPECT_NEAR(model.shells.at(1).boundingBox.second.z * unit.millimetres, 30, 1e-6);
        EXPECT_NEAR(report()["unit"]["millimetres"].get<double>(), unit.millimetres, 1e-9);
    }
}

TEST_F(ServerProcess, ReadsIgesAndBrepByTheirExtensionInAnyCase) {
    IGESControl_Writer writer("IN", 1);
    writer.AddShape(box());
    writer.Write(path("part.IGS").toStdString().c_str());
    ASSERT_EQ(import(path("part.IGS")), 0) << errors_.toStdString();
    WireModel model = readWireModel(contents("out.direct"));
    EXPECT_NEAR(model.header.unit, 25.4, 1e-9);
    EXPECT_NEAR(model.shells.at(1).boundingBox.second.z * 25.4, 30, 1e-6);
    BRepTools::Write(box(), path("part.Brep").toStdString().c_str());
    ASSERT_EQ(import(path("part.Brep")), 0) << errors_.toStdString();
    EXPECT_EQ(report()["unit"]["declared"], false);
    EXPECT_TRUE(readWireModel(contents("out.direct")).shells.at(1).closed);
}

TEST_F(ServerProcess, SewsTheLooseFacesOfAnIgesFileIntoASolidTurnedOutward) {
    IGESControl_Writer writer("MM", 0);
    writer.AddShape(box());
    writer.Write(path("faces.igs").toStdString().c_str());
    ASSERT_EQ(import(path("faces.igs")), 0) << errors_.toStdString();
    const WireModel model = readWireModel(contents("out.direct"));
    ASSERT_EQ(model.shells.size(), 1u);
    EXPECT_TRUE(model.shells.at(1).closed);
    EXPECT_EQ(misplacedMaterial(model, box()), "");
    EXPECT_EQ(report()["converted"][0]["from"], "6 loose faces");
}

TEST_F(ServerProcess, ExportsIgesOfTheSameSize) {
    ASSERT_EQ(import(writeStep(box(), "INCH"), {"-igs", "on"}), 0) << errors_.toStdString();
    IGESControl_Reader reader;
    ASSERT_EQ(reader.ReadFile(path("out.igs").toStdString().c_str()), IFSelect_RetDone);
    reader.TransferRoots();
    EXPECT_EQ(countOf(reader.OneShape(), TopAbs_FACE), 6);
    ASSERT_EQ(import(path("out.igs")), 0);
    const WireModel model = readWireModel(contents("out.direct"));
    EXPECT_NEAR(model.shells.at(1).boundingBox.second.z * model.header.unit, 30, 1e-5);
}

TEST_F(ServerProcess, ExportsEverySolidOfAnAssembly) {
    BRepTools::Write(copies(box(), 3), path("boxes.brep").toStdString().c_str());
    ASSERT_EQ(import(path("boxes.brep"), {"-igs", "on"}), 0) << errors_.toStdString();
    ASSERT_EQ(import(path("out.igs")), 0) << errors_.toStdString();
    const WireModel model = readWireModel(contents("out.direct"));
    EXPECT_EQ(model.faces.size(), 18u);
    EXPECT_EQ(report()["measured"]["bodies"].size(), 3u) << "closed ones";
}

TEST_F(ServerProcess, OffersNoSatButLeavesTheModel) {
    ASSERT_EQ(import(bracket, {"-sat", "on"}), 0);
    EXPECT_TRUE(errors_.contains("offers no SAT"));
    EXPECT_EQ(report()["notes"][0]["what"], "SAT export");
    EXPECT_TRUE(report()["dropped"].empty());
    EXPECT_TRUE(results().contains("out.direct"));
}

TEST_F(ServerProcess, LeavesOutSurfacesWhenOnlyBodiesAreWanted) {
    const TopoDS_Shape whole = box();
    const TopExp_Explorer face(whole, TopAbs_FACE);
    BRepTools::Write(face.Current(), path("face.brep").toStdString().c_str());
    EXPECT_EQ(import(path("face.brep"), {"-BodiesOnly", "off"}), 0);
    EXPECT_EQ(import(path("face.brep"), {"-BodiesOnly", "on"}), 5);
}

TEST_F(ServerProcess, IgnoresWordsForOthersAndNamesUnknownOnes) {
    EXPECT_EQ(import(bracket, {"-ControlSocket", "host", "4711", "-ResultFile", "x", "-Strange"}),
              0);
    EXPECT_TRUE(errors_.contains("ignored: -Strange"));
    EXPECT_FALSE(errors_.contains("4711"));
}

TEST_F(ServerProcess, TellsEachFailureByItsExitCode) {
    folder_.write("empty.step", {});
    folder_.write("noise.iges", "this is no exchange file");
    folder_.write("drawing.dxf", "0\nSECTION\n");
    const struct {
        QStringList words;
        int code;
    } cases[] = {
        {{}, 2},
        {{"-InputFile", bracket}, 2},
        {importing(bracket) << "-igs"
                            << "maybe",
         2},
        {importing(path("missing.step")), 3},
        {importing(folder_.path()), 3},
        {importing(path("empty.step")), 3},
        {importing(path("drawing.dxf")), 4},
        {{"-InputFile", bracket, "-OutputBaseName", path("nowhere/out")}, 7},
        {{"--version"}, 0},
        {{"--help"}, 0},
    };
    for (const auto& c : cases) {
        QFile::remove(path("out.report.json"));
        EXPECT_EQ(run(c.words), c.code) << c.words.join(' ').toStdString();
        EXPECT_EQ(errors_.contains("cad-importer-server: "), c.code != 0);
        const bool isRun = c.code == 3 || c.code == 4;
        EXPECT_EQ(results(), isRun ? QStringList("out.report.json") : QStringList());
        if (isRun) {
            EXPECT_EQ(report()["failure"]["exitCode"], c.code);
        }
    }
    const int noise = import(path("noise.iges"));
    EXPECT_TRUE(noise == 3 || noise == 5) << noise;
}

TEST_F(ServerProcess, RemovesTheResultsOfAnEarlierRunBeforeItFails) {
    folder_.write("out.direct", "old");
    folder_.write("out.report.json", "old");
    EXPECT_EQ(import(path("missing.step")), 3);
    EXPECT_EQ(results(), QStringList("out.report.json"));
    const std::string reason = report()["failure"]["reason"];
    EXPECT_NE(reason.find("missing.step isn't there"), reason.npos);
}

TEST_F(ServerProcess, ImportsNothingForAProcessThatHadGoneBefore) {
    QProcessEnvironment told = QProcessEnvironment::systemEnvironment();
    told.insert("BRIX_STARTER", "999999999-1");
    process_.setProcessEnvironment(told);
    EXPECT_EQ(import(bracket), 10);
    EXPECT_TRUE(results().isEmpty());
}

TEST_F(ServerProcess, RefusesAnInputThatAResultWouldReplace) {
    folder_.write("out.igs", "a model");
    EXPECT_EQ(import(path("out.igs"), {"-igs", "on"}), 2);
    EXPECT_TRUE(errors_.contains("would be replaced by a result"));
    EXPECT_EQ(contents("out.igs"), "a model");
}

TEST_F(ServerProcess, EndsAtItsLimitOfMemoryWithAReport) {
    if (testsupport::addressSpaceIsTaken) GTEST_SKIP() << "this build has no limit on memory";
    EXPECT_EQ(import(bracket, {"-MemoryLimit", "50"}), 12) << errors_.toStdString();
    EXPECT_EQ(results(), QStringList("out.report.json"));
    EXPECT_EQ(report()["failure"]["exitCode"], 12);
}

class LongRun : public ServerProcess {
protected:
    void SetUp() override {
        const TopoDS_Compound many = copies(mirrored(extrudedSpline()), 1500);
        BRepTools::Write(many, path("big.brep").toStdString().c_str());
    }

    bool isWriting() const { return results().contains("out.direct.partial"); }

    void waitUntilItWrites() {
        QElapsedTimer timer;
        timer.start();
        while (!isWriting() && timer.elapsed() < 60000) process_.waitForFinished(5);
        ASSERT_TRUE(isWriting());
    }
};

TEST_F(LongRun, EndsSoonWhenAskedToAndLeavesNothing) {
    start(importing(path("big.brep")));
    waitUntilItWrites();
    QElapsedTimer timer;
    timer.start();
    process_.terminate();
    EXPECT_EQ(wait(), 9);
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_TRUE(results().isEmpty());
}

TEST_F(LongRun, EndsAtItsLimitOfProcessorTimeAndSaysWhere) {
    EXPECT_EQ(import(path("big.brep"), {"-TimeLimit", "1"}), 11);
    EXPECT_EQ(results(), QStringList("out.report.json"));
    EXPECT_EQ(report()["failure"]["exitCode"], 11);
    EXPECT_EQ(report()["failure"]["phase"], "writing faces") << report().dump(1);
    EXPECT_EQ(report()["format"], "BREP");
}

TEST_F(LongRun, LeavesAReportOfACrash) {
    start(importing(path("big.brep")));
    waitUntilItWrites();
    ::kill(static_cast<pid_t>(process_.processId()), SIGSEGV);
    EXPECT_EQ(wait(), 8);
    EXPECT_EQ(results(), QStringList("out.report.json"));
    EXPECT_EQ(report()["failure"]["exitCode"], 8);
    EXPECT_EQ(report()["failure"]["phase"], "writing faces");
    EXPECT_EQ(report()["format"], "BREP");
}

TEST_F(LongRun, EndsWithTheProcessThatStartedItAndLeavesNothing) {
    const QString command = QStringLiteral("\"%1\" -InputFile \"%2\" -OutputBaseName \"%3\" & wait")
                                .arg(SERVER_PROGRAM, path("big.brep"), path("out"));
    process_.start("sh", {"-c", command});
    waitUntilItWrites();
    process_.kill();
    QElapsedTimer timer;
    timer.start();
    while (isWriting() && timer.elapsed() < 2000) process_.waitForFinished(5);
    EXPECT_TRUE(results().isEmpty());
}

} // namespace
} // namespace server::testing
