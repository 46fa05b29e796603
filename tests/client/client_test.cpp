// SPDX-License-Identifier: Apache-2.0
// The import run as the host sees it: with a server that does what the test says, and services that
// answer what the test says.
#include "client/tessoracadimporterclient.h"

#include "cadimport/controlmessages.h"
#include "cadimport/modelling/izelcadimporter.h"
#include "cadimport/modelling/izelcoordinatesystem.h"
#include "cadimport/topologymessages.h"
#include "component/objects/services/iguisimpledlg.h"
#include "component/objects/services/imacromgr.h"
#include "host/modelling/modellingcomponent.h"
#include "tests/cadimport/samplemessages.h"
#include "tests/support/fakemanager.h"
#include "tests/support/folder.h"
#include "tests/support/wishtostop.h"
#ifndef _WIN32
#include "tests/support/commalocale.h"
#endif
#include "tests/support/variables.h"
#include "zelbasictypes/sets/bitvector.h"

#include <QDir>
#include <QElapsedTimer>

#include <cstdlib>
#include <functional>
#include <new>
#include <sstream>
#include <utility>

using testsupport::FakeManager;
using testsupport::Service;
using testsupport::WishToStop;

namespace {

using Words = std::list<KorString>;

class Dialog : public Service<IGuiSimpleDlg> {
public:
    std::int32_t show(std::int32_t kind, const KorString& text, const KorString& title, bool, bool,
                      bool) override {
        EXPECT_EQ(title, " ");
        shown.push_back(std::to_string(kind) + " " + text.toNarrow());
        return answer;
    }

    std::int32_t answer = 0;
    std::vector<std::string> shown;
};

class Macros : public Service<IMacroMgr> {
public:
    bool query(bool running) override { return running; }
};

/// Offers the reference host's modelling component through the fake manager.
class ImportTest : public testing::Test {
protected:
    ImportTest() : modelling(host::rootManager(), &trace) {
        manager.offerClass("IZelCADImporter", [this] {
            ++importers;
            void* made = nullptr;
            host::rootManager().createInstance(zelImporterClassId,
                                               KorCString::borrow("IZelCADImporter"), &made);
            return static_cast<IZelCADImporter*>(made);
        });
        manager.offerNew("IZelCoordinateSystem", [] {
            void* made = nullptr;
            host::rootManager().getService(KorCString::borrow("IZelCoordinateSystem"), &made);
            return static_cast<IZelCoordinateSystem*>(made);
        });
        client = new TessoraCADImporterClient;
    }
    ~ImportTest() override {
        client = nullptr;
        host::rootManager().clear();
    }

    /// A client made anew, for services that are asked at construction.
    void renewClient() { client = new TessoraCADImporterClient; }

    std::string path(const char* name) const { return folder.path(name).toStdString(); }
    KorString base() const { return KorString(path("part").c_str()); }
    std::string reportPath() const { return path("report.txt"); }

    void writeModel(const std::vector<const CADImport::Message*>& messages) const {
        QByteArray bytes;
        for (const CADImport::Message* message : messages) bytes += sample::record(*message);
        folder.write("part.direct", bytes);
    }

    /// The words for a run that ends in files under the base name.
    Words words(std::initializer_list<std::string> more = {}) const {
        Words result{"-OutputBaseName", base()};
        for (const std::string& word : more) result.emplace_back(word.c_str());
        return result;
    }
    bool run(const Words& arguments, const char* server = FAKE_SERVER,
             const KorString& environment = {}) {
        return client->importModel(environment, KorString(server), arguments,
                                   modelling.importTarget(), nullptr, nullptr, exported);
    }
    /// Without a server: whatever model file is there is read.
    bool readOnly() {
        Words arguments{"-ControlSocket", "", "0"};
        arguments.splice(arguments.end(), words());
        return run(arguments);
    }
    /// Each file that was read brings its own, which are the host's from here on.
    std::size_t takeCoordinateSystems() {
        std::list<IZelFeature*> features;
        std::list<BitVector*> masks;
        const bool any = client->coordinateSystems(features, masks);
        EXPECT_EQ(any, !features.empty());
        EXPECT_EQ(features.size(), masks.size());
        modelling.takeCoordinateSystems(features);
        for (BitVector* mask : masks) delete mask;
        return features.size();
    }
    /// What the server was told, one word a line.
    QStringList report() const {
        const QString text = QString::fromUtf8(folder.read("report.txt"));
        return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    FakeManager manager;
    std::ostringstream trace;
    int importers = 0; ///< that the host was asked for
    host::ModellingComponent modelling;
    testsupport::Folder folder;
    IPtr<TessoraCADImporterClient> client;
    std::list<KorString> exported;
};

CADImport::NewModel newModel() {
    CADImport::NewModel message;
    message.accuracy = 0.01;
    return message;
}

CADImport::CreateCoordinateSystem coordinateSystem() {
    CADImport::CreateCoordinateSystem message;
    message.identifier = 1;
    return message;
}

} // namespace

/// Hosts and modules that were built long ago know these.
TEST(ClassIdentifiers, AreThoseThatTheOtherSideWasBuiltWith) {
    KorCString text;
    zelImportClientClassId.toText(text);
    EXPECT_EQ(text, "{53de97ac-2769-4d39-adbd-373120b9818f}");
    zelImporterClassId.toText(text);
    EXPECT_EQ(text, "{57e3d220-2a63-43d7-bc5f-bf59476a48c9}");
}

TEST_F(ImportTest, AnswersItsNameAndItsInterfaceAndNothingElse) {
    void* found = nullptr;
    client->qi("ITessoraCADImporterClient", &found);
    EXPECT_EQ(found, static_cast<ITessoraCADImporterClient*>(client.iface));
    client->qi("TessoraCADImporterClient", &found);
    EXPECT_EQ(found, client.iface);
    client->qi("itessoracadimporterclient", &found);
    EXPECT_EQ(found, nullptr);
    EXPECT_STREQ(client->metaObject()->className(), "TessoraCADImporterClient");
    EXPECT_TRUE(client->inherits("TessoraCADImporterClient"));
    EXPECT_NE(client->qt_metacast("ITessoraCADImporterClient"), nullptr);
    EXPECT_FALSE(client->reservedQuery());
}

TEST_F(ImportTest, RefusesWithoutATargetAndStartsNothing) {
    exported.emplace_back("kept");
    EXPECT_FALSE(client->importModel({}, FAKE_SERVER, words({"-FakeReport", reportPath()}), nullptr,
                                     nullptr, nullptr, exported));
    EXPECT_TRUE(report().isEmpty());
    EXPECT_EQ(exported.size(), 1u);
}

TEST_F(ImportTest, PutsTheHostsWordsFirstAndItsOwnBehind) {
    EXPECT_FALSE(run(words({"-FakeReport", reportPath(), "-X"})));
    EXPECT_EQ(report(),
              (QStringList{"-OutputBaseName", folder.path("part"), "-FakeReport",
                           folder.path("report.txt"), "-X", "-igs", "on", "-BodiesOnly", "off"}));
}

TEST_F(ImportTest, AsksForACustomImportUnlessInBatchMode) {
    IPtr<Dialog> dialog(new Dialog);
    manager.offer("IGuiSimpleDlg", dialog.iface);
    const auto modeFor = [&](std::int32_t answer) {
        dialog->answer = answer;
        run(words({"-FakeReport", reportPath()}));
        return report().value(4).toStdString();
    };
    EXPECT_EQ(modeFor(1), "-Interactive");
    EXPECT_EQ(modeFor(0), "-Passive");
    EXPECT_EQ(dialog->shown.back(), "3 Do you want a custom import?");

    manager.offer("IMacroMgr", new Macros);
    renewClient();
    dialog->shown.clear();
    EXPECT_EQ(modeFor(1), "-Batch");
    EXPECT_TRUE(dialog->shown.empty());
    manager.withdraw("IMacroMgr");
    EXPECT_EQ(modeFor(1), "-Batch") << "decided once";
}

TEST_F(ImportTest, LendsTheEnvironmentFileToTheServerAndPutsTheValuesBack) {
    testsupport::setVariable("BRIX_TEST_LONG", std::string(300, 'x'));
    testsupport::setVariable("BRIX_TEST_KEPT", "kept");
    testsupport::clearVariable("BRIX_TEST_NEW");
    folder.write("environment", "# BRIX_TEST_KEPT=no\nBRIX_TEST_NEW=1\r\n\nno sign\n=nameless\n"
                                "BRIX_TEST_LONG=first\nBRIX_TEST_LONG=a=b\nBRIX_TEST_KEPT=\n");
    run(words({"-FakeReport", reportPath(), "-FakeEnv", "BRIX_TEST_NEW", "-FakeEnv",
               "BRIX_TEST_LONG", "-FakeEnv", "BRIX_TEST_KEPT"}),
        FAKE_SERVER, KorString(path("environment").c_str()));
    EXPECT_EQ(report().mid(report().size() - 3),
              (QStringList{"BRIX_TEST_NEW=1", "BRIX_TEST_LONG=a=b", "BRIX_TEST_KEPT=kept"}));
    EXPECT_EQ(platform::getenv("BRIX_TEST_LONG"), std::string(300, 'x'));
    EXPECT_EQ(platform::getenv("BRIX_TEST_NEW"), "");
}

TEST_F(ImportTest, FailsWithoutMemoryAndPutsTheEnvironmentBack) {
    class Exhausted : public WishToStop {
    public:
        bool isCancelled() override { throw std::bad_alloc(); }
    };
    manager.offer("IGuiBusyState", new Exhausted);
    testsupport::setVariable("BRIX_TEST_LENT", "own");
    folder.write("environment", "BRIX_TEST_LENT=lent\n");
    folder.write("part.igs", "x");
    EXPECT_FALSE(
        run(words({"-FakeSleep", "700"}), FAKE_SERVER, KorString(path("environment").c_str())));
    EXPECT_EQ(platform::getenv("BRIX_TEST_LENT"), "own");
}

TEST_F(ImportTest, TellsWhyAServerDoesNotStart) {
    IPtr<Dialog> dialog(new Dialog);
    manager.offer("IGuiSimpleDlg", dialog.iface);
    exported.emplace_back("kept");
    EXPECT_FALSE(run(words(), "/nonexistent/server"));
    EXPECT_EQ(dialog->shown,
              (std::vector<std::string>{"3 Do you want a custom import?", "1 It failed to start",
                                        "1 The CAD Importer server could not be started"}));
    EXPECT_EQ(exported.size(), 1u);
}

TEST_F(ImportTest, ReadsWhatACrashedServerLeft) {
    IPtr<Dialog> dialog(new Dialog);
    manager.offer("IGuiSimpleDlg", dialog.iface);
    writeModel({});
    folder.write("part.igs", "x");
    EXPECT_TRUE(run(words({"-FakeCrash"})));
    EXPECT_EQ(dialog->shown.size(), 1u) << "the question alone";
    EXPECT_FALSE(folder.has("part.direct"));
}

#ifndef _WIN32
TEST_F(ImportTest, AsksForSatWhereTheUserWritesADecimalComma) {
    const testsupport::CommaLocale comma;
    if (!comma.isThere()) GTEST_SKIP() << "no locale with a comma is installed or can be made";
    comma.choose();
    folder.write("part.igs", "x");
    folder.write("part.sat", "x");
    EXPECT_TRUE(run(words({"-FakeReport", reportPath()})));
    EXPECT_TRUE(report().contains("-sat"));
    EXPECT_FALSE(report().contains("-igs"));
    ASSERT_EQ(exported.size(), 1u);
    EXPECT_TRUE(std::string(exported.front().toNarrow()).ends_with("part.sat"));
}
#endif

TEST_F(ImportTest, RefusesASecondRunWhileTheServerOfTheFirstWorks) {
    class Impatient : public WishToStop {
    public:
        bool isCancelled() override {
            if (again) succeeded |= std::exchange(again, nullptr)();
            return WishToStop::isCancelled();
        }
        std::function<bool()> again;
        bool succeeded = false;
    };
    IPtr<Dialog> dialog(new Dialog);
    manager.offer("IGuiSimpleDlg", dialog.iface);
    const IPtr<Impatient> busy(new Impatient);
    busy->again = [this] { return run(words()); };
    manager.offer("IGuiBusyState", busy.iface);
    run(words({"-FakeSleep", "800"}));
    EXPECT_GE(busy->questions, 1);
    EXPECT_FALSE(busy->succeeded);
    EXPECT_EQ(dialog->shown.back(), "1 It couldn't be connected to the running server.");
}

TEST_F(ImportTest, AsksTwiceASecondWhetherToStopAndWaitsForTheServerAllTheSame) {
    const IPtr<WishToStop> busy(new WishToStop);
    manager.offer("IGuiBusyState", busy.iface);
    QElapsedTimer timer;
    timer.start();
    run(words({"-FakeSleep", "1300"}));
    EXPECT_GE(timer.elapsed(), 1300);
    EXPECT_GE(busy->questions, 2);
    EXPECT_LE(busy->questions, 4);
}

TEST_F(ImportTest, FailsWithoutAnOutputBaseNameAfterTheServerHasRun) {
    exported.emplace_back("gone");
    EXPECT_FALSE(run({"-FakeReport", reportPath().c_str()}));
    EXPECT_FALSE(report().isEmpty());
    EXPECT_TRUE(exported.empty());
    EXPECT_FALSE(run({"-FakeReport", reportPath().c_str(), "-OutputBaseName"}));
}

TEST_F(ImportTest, KeepsCoordinateSystemsWhenTheNextModelFileIsMissing) {
    const auto system = coordinateSystem();
    const auto model = newModel();
    writeModel({&model, &system});
    EXPECT_TRUE(readOnly());
    EXPECT_EQ(importers, 2) << "one for the run, one for the file";
    EXPECT_TRUE(readOnly());
    EXPECT_EQ(importers, 3) << "there is no file";
    EXPECT_EQ(takeCoordinateSystems(), 1u);
}

TEST_F(ImportTest, CollectsRegularFilesOfTheBaseNameWithTheWantedExtension) {
    for (const char* name : {"part.igs", "part_2.igs", "Part.igs", "part.IGS", "part.sat",
                             "part.x.igs", "apart.igs", "part.direct.igs"}) {
        folder.write(name, "x");
    }
    ASSERT_TRUE(QDir().mkdir(folder.path("part_3.igs")));
    EXPECT_TRUE(readOnly());
    std::vector<std::string> names;
    for (const KorString& file : exported) {
        names.push_back(file.from(file.rfind(u'\\') + 1).toNarrow());
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"part.direct.igs", "part.igs", "part.x.igs",
                                               "part_2.igs"}));
}

/// What the option scan tells the client, seen through the run that follows.
TEST_F(ImportTest, TakesTheFirstCompleteSocketOptionOnly) {
    const auto startsServer = [this](Words options) {
        options.splice(options.end(), words({"-FakeReport", reportPath()}));
        QFile::remove(folder.path("report.txt"));
        run(options);
        return !report().isEmpty();
    };
    EXPECT_TRUE(startsServer({"-ResultFile", "-ControlSocket", "", "0"})) << "the value of another";
    client->setParameters({"-ControlSocket", ""});
    client->setParameters({});
    EXPECT_TRUE(startsServer({})) << "an incomplete one";
    EXPECT_FALSE(startsServer({"-ControlSocket", "", "0"}));
    EXPECT_TRUE(startsServer({"-DataSocket", "127.0.0.1", "1", "-ControlSocket", "", "0"}));
    EXPECT_FALSE(startsServer({"-controlsocket", "x", "1", "-DataSocket", "", "70000"}));
    client->setControlSocket("127.0.0.1", 1);
    client->setDataSocket("", 2);
    EXPECT_FALSE(startsServer({})) << "one host for both, the last call decides";
}

TEST_F(ImportTest, ActsOnNoFrameWithoutAControlThread) {
    client->controlMessageProcessing("junk");
    client->sendControlMessage(CADImport::SendNextModelMessage());
    const QByteArray record =
        sample::record(CADImport::SetParameterMessage({"-ControlSocket", "", "5"}));
    client->controlMessageProcessing(record);
    EXPECT_FALSE(run(words({"-FakeReport", reportPath()})));
    EXPECT_FALSE(report().isEmpty()) << "the host is still there";
    QFile::remove(folder.path("report.txt"));
    client->dataProcessing(record);
    EXPECT_FALSE(run(words({"-FakeReport", reportPath()})));
    EXPECT_TRUE(report().isEmpty()) << "the frame took it away";
}
