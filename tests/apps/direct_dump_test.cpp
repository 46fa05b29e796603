// SPDX-License-Identifier: Apache-2.0
// direct-dump as a process, on sound files and on others.
#include "tests/apps/programrun.h"
#include "tests/cadimport/samplemessages.h"
#include "tests/support/folder.h"

#include <nlohmann/json.hpp>

#include <set>

namespace {

class DirectDump : public testing::Test {
protected:
    static apps::ProgramResult run(const QStringList& words) {
        return apps::runProgram(DIRECT_DUMP, words);
    }
    QString write(const QByteArray& bytes) const { return folder.write("model.direct", bytes); }

    testsupport::Folder folder;
};

QByteArray vertexRecord(int identifier) {
    CADImport::CreateVertex vertex;
    vertex.identifier = identifier;
    vertex.point = {1, 2.5, 3};
    return sample::record(vertex);
}

QByteArray everyClass() {
    sample::Random random(11);
    QByteArray file;
    for (const auto& message : sample::oneOfEach(random, 2)) file += sample::record(*message);
    return file;
}

TEST_F(DirectDump, ShowsMessagesAsText) {
    const QString file = write(vertexRecord(1) + vertexRecord(0));
    const std::string first =
        "<CreateVertex identifier=\"1\">\n\tpoint=( 1 2.5 3)\n</CreateVertex>\n";
    const std::string second =
        "<CreateVertex identifier=\"0\">\n\tpoint=( 1 2.5 3)\n</CreateVertex>\n";
    const apps::ProgramResult all = run({file});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(all.output, first + second);
    EXPECT_EQ(run({"--valid-only", file}).output, first);
    EXPECT_EQ(run({write("")}).output, "");
}

TEST_F(DirectDump, CountsByKind) {
    const apps::ProgramResult result = run({write(vertexRecord(1) + vertexRecord(0)), "--count"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "message                        count       valid\n"
                             "CreateVertex                       2           1\n"
                             "total                              2           1\n");
}

TEST_F(DirectDump, ShowsEveryFieldAsJson) {
    const auto json = nlohmann::json::parse(run({write(everyClass()), "--json"}).output);
    ASSERT_EQ(json.size(), 26u);
    EXPECT_EQ(json[0], nlohmann::json::parse(R"({"name": "OK", "valid": true, "offset": 0})"));
    const auto vertex = nlohmann::json::parse(run({write(vertexRecord(4)), "--json"}).output);
    EXPECT_EQ(vertex, nlohmann::json::parse(R"([{"name": "CreateVertex", "valid": true,
        "identifier": 4, "point": [1, 2.5, 3], "offset": 0}])"));
    const std::set<std::string> bare = {"OK", "Escape", "Finish", "SendNextModel", "EndModel"};
    for (const auto& message : json) {
        EXPECT_EQ(message.size() == 3, bare.count(message["name"]) == 1) << message;
    }
    EXPECT_EQ(nlohmann::json::parse(run({write(""), "--json"}).output).size(), 0u);
}

TEST_F(DirectDump, RewritesASoundFileByteForByte) {
    const QByteArray file = everyClass();
    const QString name = write(file);
    EXPECT_EQ(run({name, "--rewrite", folder.path("again.direct")}).status, 0);
    EXPECT_EQ(folder.read("again.direct"), file);
    EXPECT_EQ(run({name, "--rewrite", name}).status, 0);
    EXPECT_EQ(folder.read("model.direct"), file);
}

TEST_F(DirectDump, SaysWhereAFileGoesWrong) {
    const apps::ProgramResult junk = run({write(vertexRecord(1) + "junk" + vertexRecord(2))});
    EXPECT_EQ(junk.status, 3);
    EXPECT_NE(junk.errors.find("no message begins at byte 56 of"), std::string::npos)
        << junk.errors;
    EXPECT_NE(junk.output.find("identifier=\"1\""), std::string::npos);
    EXPECT_EQ(junk.output.find("identifier=\"2\""), std::string::npos);

    const apps::ProgramResult cut =
        run({write(vertexRecord(1) + vertexRecord(2).chopped(1)), "--json"});
    EXPECT_EQ(cut.status, 3);
    EXPECT_NE(cut.errors.find("the message at byte 56 of"), std::string::npos) << cut.errors;
    EXPECT_EQ(nlohmann::json::parse(cut.output).size(), 1u);
}

TEST_F(DirectDump, RefusesWhatItCannotDo) {
    const apps::ProgramResult missing = run({folder.path("missing.direct")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.errors.find("missing.direct"), std::string::npos);
    EXPECT_EQ(missing.output, "");
    EXPECT_EQ(run({folder.path()}).status, 1);
    EXPECT_EQ(run({write(vertexRecord(1)), "--rewrite", folder.path("no/such/place")}).status, 1);
    EXPECT_EQ(run({write(vertexRecord(1)), "--rewrite", folder.path()}).status, 1);
    EXPECT_EQ(run({}).status, 2);
    EXPECT_EQ(run({"a", "b"}).status, 2);
    EXPECT_EQ(run({"a", "--json", "--count"}).status, 2);
    EXPECT_EQ(run({"--help"}).status, 0);
}

} // namespace
