// SPDX-License-Identifier: Apache-2.0
// The exit status, the reason and both forms of the report.
#include "host/run/report.h"

#include "host/run/runfacts.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using Json = nlohmann::ordered_json;

RunOutcome soundOutcome() {
    RunOutcome outcome;
    outcome.name = "part.step";
    outcome.result = outcome.hasResults = outcome.rebuilt = true;
    outcome.exportedFiles = {"out/part.igs"};
    outcome.models = {{6, 12, 1, true, true, 0.25, 0.0625, {-0.0, 0, 0, 1, 2, 3.5}, {}}};
    return outcome;
}

TEST(ExitStatus, FollowsWhatArrivedAndWhatWasLost) {
    RunOutcome outcome;
    EXPECT_EQ(exitStatus(outcome), ExitStatus::nothing);
    outcome.failure = ExitStatus::unusable;
    EXPECT_EQ(exitStatus(outcome), ExitStatus::unusable);
    outcome.hasResults = true;
    EXPECT_EQ(exitStatus(outcome), ExitStatus::complete);
    outcome.losses = {{"edge", 1, "it came without a curve"}};
    EXPECT_EQ(exitStatus(outcome), ExitStatus::withLosses);
}

TEST(ExitStatus, CountsWhatTheServerDroppedAndNotWhatItConverted) {
    RunOutcome outcome = soundOutcome();
    outcome.server = Json::parse(R"({"converted":[{"what":"edge"}],"dropped":[]})");
    EXPECT_EQ(exitStatus(outcome), ExitStatus::complete);
    outcome.server["dropped"].push_back({{"what", "face"}, {"identifier", 9}, {"why", "bad"}});
    EXPECT_EQ(exitStatus(outcome), ExitStatus::withLosses);
    EXPECT_EQ(allLosses(outcome).at(0).identifier, 9);
}

TEST(ExitStatus, TakesNoNotice) {
    RunOutcome outcome = soundOutcome();
    outcome.server = Json::parse(R"({"notes":[{"what":"SAT export","why":"not offered"}]})");
    outcome.notes = {{"check", 12, "not checked"}};
    outcome.models[0].valid.reset();
    EXPECT_EQ(exitStatus(outcome), ExitStatus::complete);
    const Json json = Json::parse(jsonReport(outcome));
    EXPECT_EQ(json["notes"][0]["by"], "server");
    EXPECT_EQ(json["notes"][1]["identifier"], 12);
    EXPECT_EQ(json["models"][0]["valid"], nullptr);
    const std::string table = tableReport(outcome);
    EXPECT_NE(table.find("closed, not checked in full\n"), table.npos);
    EXPECT_NE(table.find("losses: none\n"
                         "notes: 2\n"
                         "  1 SAT export        not offered\n"
                         "  1 check             not checked: 12\n"),
              table.npos)
        << table;
}

TEST(ServerLosses, SurviveAReportOfAnyForm) {
    for (const char* text : {"null", "[]", "7", R"({"dropped":7})", R"({"dropped":["face"]})"}) {
        EXPECT_TRUE(serverLosses(Json::parse(text)).empty()) << text;
    }
    const auto losses = serverLosses(Json::parse(R"({"dropped":[{"what":1,"identifier":"x"}]})"));
    ASSERT_EQ(losses.size(), 1u);
    EXPECT_EQ(losses[0].what + losses[0].why, "");
}

TEST(JsonReport, HoldsEverythingUnderItsKey) {
    RunOutcome outcome = soundOutcome();
    outcome.record.coordinateSystems.resize(2);
    outcome.losses = {{"edge", 7, "it came \xFF without a curve"}};
    outcome.server = Json::parse(R"({"dropped":[{"what":"face","identifier":9,"why":"bad"}]})");
    const Json json = Json::parse(jsonReport(outcome));
    EXPECT_EQ(json["result"], true);
    EXPECT_EQ(json["hasResults"], true);
    EXPECT_EQ(json["coordinateSystems"], 2);
    EXPECT_EQ(json["exportedFiles"], Json::parse(R"(["out/part.igs"])"));
    EXPECT_EQ(json["models"], Json::parse(R"([{"faces":6,"edges":12,"shells":1,"closed":true,
        "valid":true,"area":0.25,"volume":0.0625,"boundingBox":[[0.0,0.0,0.0],[1.0,2.0,3.5]]}])"));
    EXPECT_EQ(json["dropped"][0]["by"], "server");
    EXPECT_EQ(json["dropped"][1]["identifier"], 7);
    EXPECT_EQ(json["dropped"][1]["model"], nullptr);
    EXPECT_EQ(json["server"], outcome.server);
    EXPECT_EQ(json["reason"], nullptr);
    EXPECT_EQ(json["exitStatus"], 4);

    outcome.rebuilt = false;
    EXPECT_EQ(Json::parse(jsonReport(outcome))["models"][0]["area"], nullptr);
}

TEST(TableReport, ShowsTheFiguresAndGroupsLossesByReason) {
    RunOutcome outcome = soundOutcome();
    outcome.losses = {{"edge", 7, "no curve"}, {"edge", 9, "no curve"}, {"model", 0, "cut off"}};
    EXPECT_EQ(tableReport(outcome), "part.step\n"
                                    "model 1\n"
                                    "  faces               6\n"
                                    "  edges               12\n"
                                    "  shells              1\n"
                                    "  solid               closed, valid\n"
                                    "  area                0.25 m\u00b2\n"
                                    "  volume              0.0625 m\u00b3\n"
                                    "  box                 1 x 2 x 3.5 m, from (0, 0, 0)\n"
                                    "exchange files\n"
                                    "  exported file       out/part.igs\n"
                                    "losses: 3\n"
                                    "  2 edge              no curve: 7 9\n"
                                    "  1 model             cut off\n");
}

TEST(TableReport, TellsTheLossesOfSeveralModelsApart) {
    RunOutcome outcome = soundOutcome();
    outcome.models.push_back(outcome.models.front());
    outcome.losses = {{"face", 1, "no surface", 1}, {"face", 1, "no surface", 2}};
    const std::string table = tableReport(outcome);
    EXPECT_NE(table.find("  1 face of model 1   no surface: 1\n"
                         "  1 face of model 2   no surface: 1\n"),
              table.npos)
        << table;
}

TEST(TableReport, SaysSoWhenNothingIsLostAndWhenNothingCame) {
    const std::string sound = tableReport(soundOutcome());
    EXPECT_EQ(sound.substr(sound.size() - 13), "losses: none\n");
    RunOutcome nothing;
    nothing.name = "part.step";
    EXPECT_EQ(tableReport(nothing), "part.step\nnothing was imported\n");
}

TEST(Reason, NamesTheMostTellingFact) {
    RunFacts facts;
    facts.server = "serve";
    facts.modelFile = "b.direct";
    EXPECT_EQ(reasonForNothing(facts),
              "the server came to its end and left neither a model file nor a report");
    facts.serverEnd = "the server crashed";
    EXPECT_EQ(reasonForNothing(facts),
              "the server crashed and left neither a model file nor a report");
    facts.serverWords = "no licence";
    EXPECT_EQ(reasonForNothing(facts), "the server crashed and left neither a model file nor a "
                                       "report; it said: no licence");
    facts.missingModel = "p.step";
    EXPECT_EQ(reasonForNothing(facts), "there is no CAD file p.step");
    facts.serverReported = true;
    facts.missingModel.clear();
    EXPECT_EQ(reasonForNothing(facts), "the server crashed without leaving a model file");
    facts.serverFailure = "the disk is full";
    EXPECT_EQ(reasonForNothing(facts), "the server crashed: the disk is full");
    facts.modelFileBytes = 0;
    EXPECT_EQ(reasonForNothing(facts), "the model file is empty");
    facts.modelFileBytes = 70;
    EXPECT_EQ(reasonForNothing(facts), "the model file holds no model that can be read (70 bytes)");
    facts.startProblem = "no such file";
    EXPECT_EQ(reasonForNothing(facts), "the server can't be started: serve: no such file");
    facts.interrupted = true;
    EXPECT_EQ(reasonForNothing(facts), "the import was stopped on request");
}

} // namespace
} // namespace host
