// SPDX-License-Identifier: Apache-2.0
// Whose report it is that lies beside the output.
#include "host/run/serverreport.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace host {
namespace {

class ServerReportTest : public testing::Test {
protected:
    void write(const char* text, int agedSeconds = 0) {
        QFile file(base + ".report.json");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.flush();
        const QDateTime time = QDateTime::currentDateTime().addSecs(-agedSeconds);
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    QTemporaryDir directory;
    QString base = directory.filePath("model");
};

TEST_F(ServerReportTest, ReadsANewReport) {
    const ServerReportFile file(base);
    write(R"({"format":"STEP"})");
    EXPECT_EQ(file.read()["format"], "STEP");
}

TEST_F(ServerReportTest, PassesOverOneThatWasThereBefore) {
    write(R"({"format":"STEP"})", 60);
    const ServerReportFile file(base);
    EXPECT_TRUE(file.read().is_null());
    write(R"({"format":"IGES"})");
    EXPECT_EQ(file.read()["format"], "IGES");
}

TEST_F(ServerReportTest, TakesGarbageAndNothingForNoReport) {
    const ServerReportFile file(base);
    EXPECT_TRUE(file.read().is_null());
    write(R"({"format":)");
    EXPECT_TRUE(file.read().is_null());
    const auto nested = [](std::size_t depth) {
        return std::string(depth, '[') + std::string(depth, ']');
    };
    write(nested(100).c_str());
    EXPECT_TRUE(file.read().is_array());
    for (const std::size_t depth : {102, 500000}) {
        write(nested(depth).c_str());
        EXPECT_TRUE(file.read().is_null()) << depth;
    }
}

TEST(LostOnTheWay, ComparesWhatWasWrittenWithWhatArrived) {
    ImportRecord record;
    record.models.resize(2);
    record.models[0].faces[1] = record.models[1].faces[1] = {};
    const auto lost = [&](const char* report) {
        std::string all;
        for (const auto& loss : lostOnTheWay(nlohmann::ordered_json::parse(report), record)) {
            all += loss.what + ": " + loss.why + '\n';
        }
        return all;
    };
    EXPECT_EQ(lost(R"({"written":{"CreateFace":2,"CreateLine":7}})"), "");
    EXPECT_EQ(lost(R"({"written":{"CreateFace":3,"CreateEdge":1}})"),
              "edge: 1 of 1 that the server wrote did not arrive\n"
              "face: 1 of 3 that the server wrote did not arrive\n");
    for (const char* other :
         {"null", "[]", R"({"written":5})", R"({"written":{"CreateFace":"x"}})"}) {
        EXPECT_EQ(lost(other), "") << other;
    }
}

} // namespace
} // namespace host
