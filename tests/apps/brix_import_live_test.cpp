// SPDX-License-Identifier: Apache-2.0
// brix-import over a control connection, with the real component.
#include "tests/apps/brixprocess.h"
#include "tests/apps/modelfile.h"
#include "tests/apps/serverend.h"
#include "tests/support/tracefiles.h"

namespace apps {
namespace {

class LiveTest : public BrixImportTest {
protected:
    LiveTest() {
        directory.write("part.step");
        ModelFile file(model);
        file.begin(10), file.addSphere(), file.end();
    }

    /// The words of a live run whose server does what `deeds` say.
    QStringList talking(const QStringList& deeds) const { return serving(deeds) << "--live"; }
    /// What a server does that all goes well with.
    QStringList sound() const {
        return {"-TalkListen", "-TalkAwait",     "SendNextModel", "-FakeCopy",
                model,         base + ".direct", "-TalkResult",   base + ".direct",
                "-TalkSend",   "Finish",         "-TalkAwait",    "Finish"};
    }

    const QString model = directory.path("model");
};

TEST_F(LiveTest, ImportsTheModelThatTheServerNames) {
    const ImportResult live = run(talking(sound()));
    EXPECT_EQ(live.status, 0) << live.output << live.errors;
    EXPECT_EQ(live.json()["models"].size(), 1u);
    EXPECT_FALSE(hasModelFile());
    const ImportResult direct = run(serving({"-FakeCopy", model, base + ".direct"}));
    EXPECT_EQ(live.output, direct.output);
    EXPECT_EQ(leftBehind(), QStringList());
}

TEST_F(LiveTest, TracesFramesWhenAskedTo) {
    const testsupport::TraceFiles files;
    const auto trace = [&files](const char* which) { return files.content(which); };
    QProcessEnvironment variables = environment();
    variables.insert("ZEL_DRIVE_C", files.drive.path());
    process.setProcessEnvironment(variables);
    EXPECT_EQ(run(talking(sound())).status, 0);
    EXPECT_EQ(trace("Send") + trace("Read"), "");
    EXPECT_EQ(run(talking(sound()) + QStringList("--trace-frames")).status, 0);
    EXPECT_EQ(trace("Send").count("<QByteArray"), 3) << "OK, SendNextModel, Finish";
    EXPECT_TRUE(trace("Send").startsWith("<QByteArray length=\"12\">\n   0   0   0   8"));
    EXPECT_EQ(trace("Read").count("<QByteArray"), 2) << "SetParameters, Finish";
}

TEST_F(LiveTest, GivesAReasonWhenNoModelIsNamed) {
    const std::pair<QStringList, std::string> cases[] = {
        {{}, "the server came to its end and named no model file"},
        {{"-TalkListen", "-FakeCrash"},
         serverEnd("the server crashed") + " and named no model file"},
        {{"-TalkListen", "-TalkSend", "Escape", "-TalkAwait", "Finish", "-FakeExit", "5"},
         serverEnd("the server ended with exit code 5") + " and named no model file"},
        {{"-TalkListen", "-TalkResult", "part.igs", "-TalkSend", "Finish"}, "named no model file"},
    };
    for (const auto& [deeds, reason] : cases) {
        const ImportResult result = run(talking(deeds));
        EXPECT_EQ(result.status, 1) << reason;
        EXPECT_TRUE(result.says(reason)) << result.errors;
    }
    const ImportResult missing =
        run(talking({"-TalkListen", "-TalkResult", base + ".direct", "-TalkSend", "Finish"}));
    EXPECT_TRUE(missing.says("left neither a model file nor a report")) << missing.errors;
}

TEST_F(LiveTest, EndsWithStatusThreeWhenTheComponentCanNotTalk) {
    const ImportResult result = run({part, "--live", "--module", FAKE_MODULE});
    EXPECT_EQ(result.status, 3);
    EXPECT_TRUE(result.says("the component offers no control connection")) << result.errors;
}

#ifdef IMPORT_SERVER
TEST_F(LiveTest, ReportsTheSameAsADirectRunOfTheSampleModel) {
    const auto report = [this](const QStringList& more) {
        const ImportResult result =
            run(QStringList{BRACKET_FILE, "--json", "--server", IMPORT_SERVER} + more +
                QStringList{"--output-base", base});
        EXPECT_EQ(result.status, 0) << result.output << result.errors;
        Json json = result.json();
        json["server"].erase("timingsMs");
        return json;
    };
    const Json direct = report({});
    const Json live = report({"--live"});
    EXPECT_EQ(live["models"][0]["faces"], 19);
    EXPECT_EQ(live["exportedFiles"].size(), 1u);
    EXPECT_EQ(live, direct);
}
#endif

} // namespace
} // namespace apps
