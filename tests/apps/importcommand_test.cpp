// SPDX-License-Identifier: Apache-2.0
// The command line of brix-import.
#include "apps/importcommand.h"

#include "tests/support/folder.h"

namespace apps {
namespace {

class ImportCommandTest : public testing::Test {
protected:
    static ParsedCommand parse(const QStringList& words) {
        std::vector<std::string> all;
        for (const QString& word : words) all.push_back(word.toStdString());
        return parseBytes(all);
    }
    static ParsedCommand parseBytes(std::vector<std::string> words) {
        words.insert(words.begin(), "brix-import");
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ParsedCommand parsed = parseImportCommand(words);
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        return parsed;
    }
    static ImportCommand require(const QStringList& words) {
        const ParsedCommand parsed = parse(words);
        EXPECT_TRUE(parsed.command) << errors;
        return parsed.command.value_or(ImportCommand{});
    }
    inline static std::string output, errors;
};

TEST_F(ImportCommandTest, TakesTheModelAndEveryOption) {
    const QString words = "--output-base o/b --argument -Odd part.step --server s --module m "
                          "--environment e --answer yes --set A/b=c --set D/e=f --settings i.ini "
                          "--without IGuiSimpleDlg --trace t --picture p.png --export x.brep "
                          "--json r.json --no-compare --time-limit 7 --memory-limit 900";
    const ImportCommand command =
        require(words.split(' ') + QStringList{"--argument", "", "--set", "G/h i=j k"});
    const host::ImportOptions& options = command.options;
    EXPECT_EQ(options.model, "part.step");
    EXPECT_EQ(options.outputBase, "o/b");
    EXPECT_EQ(options.arguments, (QStringList{"-Odd", ""}));
    EXPECT_EQ(options.server + options.module + options.environmentFile, "sme");
    EXPECT_EQ(options.answer, std::optional(true));
    EXPECT_EQ(options.settings, (QStringList{"A/b=c", "D/e=f", "G/h i=j k"}));
    EXPECT_EQ(options.settingsFile, "i.ini");
    EXPECT_EQ(options.without, QStringList{"IGuiSimpleDlg"});
    EXPECT_EQ(options.traceFile, "t");
    EXPECT_EQ(options.picture, "p.png");
    EXPECT_EQ(options.exportFile, "x.brep");
    EXPECT_FALSE(options.noServer || options.live || options.traceFrames);
    EXPECT_FALSE(options.compares);
    EXPECT_EQ(options.timeLimitSeconds, 7);
    EXPECT_EQ(options.memoryLimitMb, 900);
    EXPECT_TRUE(command.json);
    EXPECT_EQ(command.jsonFile, "r.json");
}

TEST_F(ImportCommandTest, RefusesToWriteOverTheModel) {
    const testsupport::Folder folder;
    const QString model = folder.write("part.step");
    const QString same = folder.path("./part.step");
    for (const char* option : {"--export", "--trace", "--json"}) {
        EXPECT_FALSE(parse({model, option, same}).command) << option;
        EXPECT_NE(errors.find("MODEL itself"), errors.npos) << errors;
    }
}

TEST_F(ImportCommandTest, WritesJsonToStandardOutputWithoutAFile) {
    for (const QStringList& words :
         {QStringList{"part.step", "--json"}, QStringList{"--json", "part.step"},
          QStringList{"part.step", "--json", "--answer", "no"}}) {
        const ImportCommand command = require(words);
        EXPECT_TRUE(command.json);
        EXPECT_EQ(command.jsonFile, "");
        EXPECT_EQ(command.options.model, "part.step");
    }
    EXPECT_FALSE(require({"part.step"}).json);
    EXPECT_FALSE(require({"part.step"}).options.answer);
}

TEST_F(ImportCommandTest, TakesAConversationAndItsTrace) {
    EXPECT_TRUE(require({"part.step", "--live"}).options.live);
    const host::ImportOptions options = require({"part.step", "--live", "--trace-frames"}).options;
    EXPECT_TRUE(options.live && options.traceFrames);
}

TEST_F(ImportCommandTest, TakesAnyBytesForTheModelAndTextForEverythingElse) {
    const std::string name = "part\xFF.step";
    const auto command = parseBytes({name, "--quiet"}).command;
    ASSERT_TRUE(command);
    EXPECT_EQ(command->options.modelBytes, name);
    EXPECT_TRUE(command->options.model.endsWith(".step"));
    EXPECT_EQ(require({"part.step"}).options.modelBytes, "");
    EXPECT_EQ(parseBytes({"part.step", "--output-base", name}).exitStatus, 2);
    EXPECT_NE(errors.find("no UTF-8"), errors.npos) << errors;
}

TEST_F(ImportCommandTest, ShowsProgressAsTold) {
    using host::ProgressStyle;
    const auto style = [](const QStringList& words) {
        return require(QStringList("part.step") + words).options.progress;
    };
    EXPECT_EQ(style({"--progress", "always"}), ProgressStyle::rewritten);
    EXPECT_EQ(style({"--progress", "never"}), ProgressStyle::none);
    EXPECT_EQ(style({"--quiet"}), ProgressStyle::none);
}

TEST_F(ImportCommandTest, RefusesWrongUseWithStatusTwoAndAReason) {
    const QStringList wrong[] = {{},
                                 {"--no-server"},
                                 {"--no-server", "--output-base", "b", "part.step"},
                                 {"--no-server", "--output-base", "b", "--live"},
                                 {"part.step", "--trace-frames"},
                                 {"part.step", "more.step"},
                                 {"part.step", "--answer", "perhaps"},
                                 {"part.step", "--unknown"},
                                 {"part.step", "--progress", "loud"},
                                 {"part.step", "--picture", "p.jpg"},
                                 {"part.step", "--export", "x.foo"},
                                 {"part.step", "--trace"}};
    for (const QStringList& words : wrong) {
        const ParsedCommand parsed = parse(words);
        EXPECT_FALSE(parsed.command) << words.join(' ').toStdString();
        EXPECT_EQ(parsed.exitStatus, 2);
        EXPECT_NE(errors, "");
        EXPECT_EQ(output, "");
    }
}

TEST_F(ImportCommandTest, HelpsAndTellsItsVersion) {
    EXPECT_EQ(parse({"--help"}).exitStatus, 0);
    for (const char* option :
         {"MODEL", "--output-base", "--no-server", "--live", "--trace-frames", "--argument",
          "--server", "--module", "--environment", "--answer", "--set", "--settings", "--without",
          "--trace", "--json", "--picture", "--export", "--progress", "--quiet"}) {
        EXPECT_NE(output.find(option), std::string::npos) << option;
    }
    EXPECT_EQ(parse({"--version"}).exitStatus, 0);
    EXPECT_EQ(output.rfind("brix-import ", 0), 0u);
}

} // namespace
} // namespace apps
