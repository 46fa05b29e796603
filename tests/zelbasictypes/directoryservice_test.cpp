// SPDX-License-Identifier: Apache-2.0
// A host that knows the directory of temporary files, in a process of its own, since the library
// looks for the service only once.
#include "component/objects/services/izeldirservice.h"
#include "tests/support/service.h"
#include "tests/zelbasictypes/fakehost.h"
#include "zelbasictypes/files/fileoperations.h"
#include "zelbasictypes/files/pathoperations.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class Directories : public testsupport::Service<IZelDirService> {
public:
    const KorString& directory(const char* name) override {
        asked = name;
        return answer;
    }

    std::string asked;
    KorString answer;
};

} // namespace

TEST(DirectoryService, TellsWhereTemporaryFilesGo) {
    static Directories service;
    service.addRef();
    fakehost::offer<IZelDirService>(&service);
    struct {
        const char* directory;
        const char* expected; ///< up to the process's number
    } const cases[] = {{"d:\\temp", "d:\\temp\\zel-"}, {"d:", "d:\\\\zel-"}, {"", "\\zel-"}};
    for (const auto& c : cases) {
        service.answer = c.directory;
        EXPECT_EQ(&zelDirectory("temp"), &service.answer);
        KorString name;
        EXPECT_TRUE(makeTempName(name));
        const KorString expected(c.expected);
        EXPECT_TRUE(name.startsWith(expected, expected.length())) << name;
        EXPECT_EQ(service.asked, "temp");
    }
    EXPECT_EQ(fakehost::lookUps(IZelDirService::interfaceName), 1);
}
