// SPDX-License-Identifier: Apache-2.0
// The whole program brix-import, with components that do what a test needs.
#include "tests/apps/brixprocess.h"

namespace apps {
namespace {

/// A run of the fake component, whose client does what `deed` says.
QStringList faking(const QString& deed) {
    return {"part.step", "--module", FAKE_MODULE, "--argument", deed, "--json"};
}

TEST_F(BrixImportTest, ReportsExportedFilesThatCameWithoutAModel) {
    const ImportResult result = run(faking("export"));
    EXPECT_EQ(result.status, 4);
    EXPECT_EQ(result.json()["exportedFiles"][0], "C:/out/part.igs");
    EXPECT_EQ(result.json()["result"], true);
    EXPECT_EQ(result.json()["hasResults"], false);
}

TEST_F(BrixImportTest, EndsWithStatusOneWhenNothingCame) {
    const ImportResult result = run(faking("nothing") + QStringList{"--server", BRIX_IMPORT});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.says("brix-import: there is no CAD file part.step")) << result.errors;
    EXPECT_EQ(result.json()["reason"].is_string(), true);
}

TEST_F(BrixImportTest, AnswersQuestionsAsToldAndDeclinesWithoutATerminal) {
    EXPECT_EQ(run(faking("ask") + QStringList{"--answer", "yes"}).status, 0);
    EXPECT_EQ(run(faking("ask") + QStringList{"--answer", "no"}).status, 1);
    EXPECT_EQ(run(faking("ask")).status, 1);
    EXPECT_EQ(
        run(faking("ask") + QStringList{"--answer", "yes", "--without", "IGuiSimpleDlg"}).status,
        1);
}

TEST_F(BrixImportTest, SaysOfAServerThatNobodyWasToldOfThatItCouldNotBeStarted) {
    if (!HOST_HEARS_COMPONENT) GTEST_SKIP() << "the host doesn't hear the component here";
    const QString server = directory.write("server", "#!/no/such/interpreter\n");
    QFile::setPermissions(server, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    directory.write("part.step");
    for (const QStringList& more : {QStringList(), QStringList("--live")}) {
        const ImportResult result =
            run(QStringList{part, "--server", server, "--without", "IGuiSimpleDlg"} + more);
        EXPECT_EQ(result.status, 1);
        EXPECT_TRUE(result.says("the server could not be started and")) << result.errors;
    }
}

TEST_F(BrixImportTest, EndsWithStatusThreeAndAReasonForAModuleThatIsNone) {
    const std::pair<const char*, const char*> modules[] = {
        {"/no/such/module", "the module is missing"},
        {BRIX_IMPORT_SOURCE, "the module can't be loaded"},
        {EMPTY_MODULE, "it has no EntryPoint"}};
    for (const auto& [module, reason] : modules) {
        const ImportResult result = run({"part.step", "--module", module});
        EXPECT_EQ(result.status, 3) << module;
        EXPECT_TRUE(result.says(reason)) << result.errors;
    }
}

TEST_F(BrixImportTest, RefusesSettingsServicesAndTracesThatCannotBe) {
    const QStringList wrong[] = {{"--set", "no equals"},
                                 {"--settings", "/no/such/file"},
                                 {"--environment", "/no/such/file"},
                                 {"--environment", directory.path()},
                                 {"--without", "INothing"},
                                 {"--output-base", "/no/such/directory/part"}};
    for (const QStringList& words : wrong) {
        const ImportResult result = run(faking("sphere") + words);
        EXPECT_EQ(result.status, 2) << words.join(' ').toStdString();
        EXPECT_TRUE(result.says("brix-import: ")) << result.errors;
        EXPECT_EQ(result.output, "");
    }
}

/// The options that name a file, with such a file in the folder of the test.
QStringList outputs(const testsupport::Folder& folder) {
    return {"--trace",  folder.path("trace"),    "--picture", folder.path("picture.png"),
            "--export", folder.path("part.brep")};
}

TEST_F(BrixImportTest, RefusesPlacesThatCanNotBeWrittenBeforeTheImport) {
    const QStringList places[] = {{"--json", "/no/such/directory/report"},
                                  {"--json", directory.path()},
                                  {"--trace", "/no/such/directory/trace"},
                                  {"--picture", "/no/such/directory/picture.png"},
                                  {"--export", "/no/such/directory/part.brep"}};
    for (const QStringList& words : places) {
        const ImportResult result =
            run(QStringList{"part.step", "--module", FAKE_MODULE, "--argument", "sphere"} + words);
        EXPECT_EQ(result.status, 2) << words.join(' ').toStdString();
        EXPECT_TRUE(result.says(words[1].toStdString() + " can't be written: ")) << result.errors;
        EXPECT_FALSE(result.says("importing")) << result.errors;
    }
}

TEST_F(BrixImportTest, LeavesFilesAsTheyAreWhenTheImportFails) {
    const QStringList names{"part.brep", "picture.png", "trace"};
    EXPECT_EQ(run(faking("nothing") + outputs(directory)).status, 1);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList());
    for (const QString& name : names) directory.write(name, "old");
    EXPECT_EQ(run(faking("nothing") + outputs(directory)).status, 1);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), names);
    for (const QString& name : names) EXPECT_EQ(directory.read(name), "old") << name.toStdString();
}

#ifdef BRIX_REBUILDS
TEST_F(BrixImportTest, NamesTheOutputsThatNeedAWorkerWhereThereIsNone) {
    const QString lone = directory.path("brix-import");
    ASSERT_TRUE(QFile::copy(BRIX_IMPORT, lone));
    process.start(lone, faking("sphere") + outputs(directory));
    const ImportResult result{finish(process)};
    EXPECT_EQ(result.status, 4) << result.errors;
    const Json json = result.json();
    std::string named;
    for (const Json& loss : json["dropped"]) named += loss["what"].get<std::string>() + ' ';
    EXPECT_EQ(named, "picture export ");
}
#endif

TEST_F(BrixImportTest, RefusesAFolderForTemporaryFilesThatIsNotThere) {
    QProcessEnvironment variables = environment();
    for (const char* name : testsupport::temporaryVariables) {
        variables.insert(name, directory.path("nowhere"));
    }
    process.setProcessEnvironment(variables);
    const ImportResult result = run(faking("sphere"));
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.says("there is no folder for temporary files")) << result.errors;
}

TEST_F(BrixImportTest, WritesTraceTableAndJsonFile) {
    const ImportResult table = run({"part.step", "--module", FAKE_MODULE, "--argument", "sphere",
                                    "--trace", directory.path("trace")});
    EXPECT_EQ(table.output.rfind("part.step\nmodel 1\n", 0), 0u) << table.output;
    const QByteArray lines = directory.read("trace");
    EXPECT_TRUE(lines.startsWith("[\"IZelCoordinateSystem#1\",\"setOrigin\",[[1,2,3]]]\n"));
    EXPECT_TRUE(lines.endsWith("[\"model\",\"modelEntry\",[]]\n"));

    EXPECT_EQ(run(faking("sphere") << directory.path("report.json")).output, "");
    const Json json = Json::parse(directory.read("report.json").toStdString());
    EXPECT_EQ(json["exitStatus"], 0);
    EXPECT_EQ(json["coordinateSystems"], 1);
}

} // namespace
} // namespace apps
