// SPDX-License-Identifier: Apache-2.0
// brix-import among programs that die, stay, stop listening or never had a terminal. What takes a
// shell is here; it is about descriptors, signals and names of bytes, which Windows hasn't got.
#include "tests/apps/brixprocess.h"

#include "platform/clock.h"

namespace apps {
namespace {

class UnkindTest : public BrixImportTest {
protected:
    UnkindTest() { directory.write("part.step"); }

    QString program(const QString& name, const QString& text) const {
        const QString file = directory.write(name, "#!/bin/sh\n" + text.toUtf8() + '\n');
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file;
    }
    QStringList importing(const QString& server) const {
        return {part, "--server", server, "--output-base", base, "--json"};
    }
    static bool isDone(const auto& condition) {
        for (int turn = 0; turn < 400 && !condition(); ++turn) platform::sleep(25);
        return condition();
    }
    ImportResult shell(const QString& command) {
        process.start("/bin/sh", {"-c", command});
        return {finish(process)};
    }
    std::uint32_t idIn(const QString& name) const {
        return directory.read(name).trimmed().toUInt();
    }
};

TEST_F(UnkindTest, EndsAServerThatAnotherProgramHasStarted) {
    const QString wrapper =
        program("wrapper", QStringLiteral("'%1' -FakeSleep 60000 &\necho $! > '%2'\nwait")
                               .arg(FAKE_SERVER, directory.path("id")));
    start(importing(wrapper));
    ASSERT_TRUE(isDone([&] { return idIn("id") != 0; }));
    platform::endProcess(static_cast<std::uint32_t>(process.processId()));
    EXPECT_EQ(finish(process).status, 1);
    EXPECT_FALSE(platform::isProcessAlive(idIn("id")));
}

TEST_F(UnkindTest, EndsWhatAServerHasLeftRunning) {
    const QString server =
        program("server", QStringLiteral("trap '' TERM\n'%1' -FakeSleep 60000 &\necho $! > '%2'")
                              .arg(FAKE_SERVER, directory.path("id")));
    EXPECT_EQ(run(importing(server)).status, 1);
    EXPECT_FALSE(platform::isProcessAlive(idIn("id")));
}

TEST_F(UnkindTest, LeavesAServerTimeToTidyUpAlsoAfterTwoInterrupts) {
    const QString server = program(
        "server", QStringLiteral("trap \"sleep 0.2; echo > '%1'; exit 9\" TERM\necho > '%2'\n"
                                 "while :; do sleep 0.02; done")
                      .arg(directory.path("tidied"), directory.path("ready")));
    start(importing(server));
    ASSERT_TRUE(isDone([&] { return directory.has("ready"); }));
    for (int i = 0; i < 2; ++i) {
        platform::endProcess(static_cast<std::uint32_t>(process.processId()));
        platform::sleep(20);
    }
    EXPECT_EQ(finish(process).status, 1);
    EXPECT_TRUE(directory.has("tidied"));
}

/// What a shell makes of a program that ended by a signal is 128 and more.
TEST_F(UnkindTest, EndsAsUsualWhereNobodyReadsItsChannels) {
    const QString bin = QFileInfo(BRIX_IMPORT).path() + '/';
    const QString json = directory.path("report.json");
    const QString sphere = QStringLiteral("brix-import part.step --argument sphere --module " //
                                          FAKE_MODULE " --json");
    for (const QString& command :
         {sphere + ' ' + json, sphere,
          QStringLiteral("direct-dump " GOLDEN_DIRECTORY "/bracket.direct"),
          QStringLiteral("direct-dump --help"), QStringLiteral("kor-dump --help")}) {
        const ImportResult result =
            shell("{ { sleep 0.2; " + bin + command + " 2>&1; echo $? >&3; } | true; } 3>&2");
        EXPECT_EQ(result.errors, "0\n") << command.toStdString();
    }
    EXPECT_EQ(Json::parse(directory.read("report.json").toStdString())["exitStatus"], 0);
    EXPECT_EQ(leftBehind(), QStringList());
}

TEST_F(UnkindTest, ImportsWhereItsChannelsCameClosed) {
    const QString command = QStringLiteral("exec " BRIX_IMPORT " part.step --argument sphere "
                                           "--progress always --module " FAKE_MODULE " --json %1 ")
                                .arg(directory.path("report.json"));
    for (const char* closed : {"0<&-", "0<&- 1>&-", "0<&- 1>&- 2>&-"}) {
        EXPECT_EQ(shell(command + closed).status, 0) << closed;
        const Json json = Json::parse(directory.read("report.json").toStdString());
        EXPECT_EQ(json["dropped"], Json::array()) << closed;
    }
}

#ifdef IMPORT_SERVER
TEST_F(UnkindTest, ImportsAFileWhoseNameIsNoText) {
    const QString name =
        QStringLiteral("'%1'/\"$(printf 'part\\377.step')\"").arg(directory.path());
    const QString command = QStringLiteral(BRIX_IMPORT " %1 --json").arg(name);
    const ImportResult none = shell(command);
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.says("there is no CAD file")) << none.errors;
    const ImportResult result = shell("cp " BRACKET_FILE " " + name + "; " + command +
                                      "; status=$?; rm " + name + "; exit $status");
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.json()["models"][0]["faces"], 19);
    EXPECT_EQ(leftBehind(), QStringList());
}
#endif

#if defined(IMPORT_SERVER) && defined(BRIX_REBUILDS)
TEST_F(UnkindTest, NamesWhatDiffersFromTheServersFigures) {
    const QString server = program(
        "server",
        QStringLiteral("'%1' \"$@\" && sed -i 's/\"area\": 8[0-9.]*/\"area\": 12345.0/' '%2'")
            .arg(IMPORT_SERVER, base + ".report.json"));
    const QStringList words{BRACKET_FILE, "--server", server, "--output-base", base, "--json"};
    const ImportResult compared = run(words);
    EXPECT_EQ(compared.status, 4) << compared.errors;
    const Json dropped = compared.json()["dropped"];
    ASSERT_FALSE(dropped.empty());
    EXPECT_EQ(dropped[0]["what"], "face");
    EXPECT_NE(dropped[0]["why"].get<std::string>().find("instead of 12345 mm"), std::string::npos);
    EXPECT_EQ(run(words + QStringList{"--no-compare"}).status, 0);
}
#endif

} // namespace
} // namespace apps
