// SPDX-License-Identifier: Apache-2.0
// Figures of a server against those of a rebuilt model.
#include "host/run/comparison.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using Json = nlohmann::ordered_json;

class ComparisonTest : public ::testing::Test {
protected:
    ComparisonTest() {
        record_.shells = {{5, {}, {}, {1, 2}, true}, {6, {}, {}, {3}, true}};
        model_.faceMeasures = {{1, 2e-6, 3e-9}, {2, 1e-6, 1e-9}, {3, 1e-6, -1e-9}};
    }
    /// Of one face, in square millimetres.
    std::vector<DroppedRecord> face(double area, double margin) const {
        return differences(
            Json{{"measured",
                  {{"faces", {{{"identifier", 1}, {"area", area}, {"margin", margin}}}}}}},
            record_, model_);
    }
    std::vector<DroppedRecord> body(double volume, std::vector<int> shells) const {
        return differences(Json{{"measured",
                                 {{"bodies",
                                   {{{"identifier", 8},
                                     {"shells", shells},
                                     {"volume", volume},
                                     {"margin", 0.0}}}}}}},
                           record_, model_);
    }

    ModelRecord record_;
    RebuiltModel model_;
};

TEST_F(ComparisonTest, NamesAFaceThatDiffersBeyondItsMargin) {
    EXPECT_TRUE(face(2.0 + 1.9e-6, 0.0).empty());
    EXPECT_TRUE(face(2.1, 0.1).empty());
    const auto found = face(3.158, 1.0);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].what, "face");
    EXPECT_EQ(found[0].identifier, 1);
    EXPECT_EQ(found[0].why, "area 2 instead of 3.158 mm\u00b2");
    model_.faceMeasures[0].areaM2 = 0.0;
    EXPECT_EQ(face(3.158, 1e-3).at(0).why, "area 0 instead of 3.158 mm\u00b2");
}

TEST_F(ComparisonTest, AddsTheShellsOfABodyUp) {
    EXPECT_TRUE(body(4.0, {5}).empty());
    EXPECT_TRUE(body(3.0, {5, 6}).empty());
    const auto found = body(4.1, {5, 6});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].what, "body");
    EXPECT_EQ(found[0].identifier, 8);
    EXPECT_EQ(found[0].why, "volume 3 instead of 4.1 mm\u00b3");
}

TEST_F(ComparisonTest, LeavesOutWhatHasNoFigure) {
    EXPECT_TRUE(body(99.0, {5, 7}).empty()) << "a shell that didn't arrive is a loss already";
    model_.faceMeasures.erase(model_.faceMeasures.begin());
    EXPECT_TRUE(face(99.0, 0.0).empty());
    EXPECT_TRUE(body(99.0, {5}).empty());
}

TEST(OldFaults, AreNotesForFacesThatTheServerFoundInvalid) {
    const auto report = Json::parse(R"({"measured":{"faces":[
        {"identifier":1,"area":2,"margin":0},{"identifier":2,"area":2,"margin":0,"valid":false},
        {"identifier":3,"area":2,"margin":0,"valid":true},{"identifier":4,"valid":false},
        {"identifier":5,"area":2,"margin":0,"valid":false}]}})");
    std::vector<DroppedRecord> losses, notes;
    for (const Identifier face : {0, 1, 2, 3, 4}) losses.push_back({"validity", face, "bad"});
    losses.push_back({"face", 2, "lost"});
    noteOldFaults(report, losses, notes);
    EXPECT_EQ(losses.size(), 5U);
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].identifier, 2);
    EXPECT_EQ(notes[0].why, "bad, and so it was in the file");
    EXPECT_EQ(notes[1].identifier, 5);
    EXPECT_EQ(notes[1].why, "it was invalid in the file");
}

TEST_F(ComparisonTest, SurvivesAReportOfAnyForm) {
    for (const char* text :
         {"null", "[]", R"({"measured":[]})", R"({"measured":{"faces":7,"bodies":[1]}})",
          R"({"measured":{"faces":[{"identifier":"1","area":7,"margin":0},{"identifier":1}]}})",
          R"({"measured":{"bodies":[{"identifier":8,"shells":["x"],"volume":7,"margin":0}]}})"}) {
        EXPECT_TRUE(differences(Json::parse(text), record_, model_).empty()) << text;
    }
}

} // namespace
} // namespace host
