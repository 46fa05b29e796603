// SPDX-License-Identifier: Apache-2.0
// Looking up and counting through the host's manager, its scopes included.
#include "component/manageraccess.h"

#include "component/objects/countservice.h"
#include "tests/support/fakemanager.h"
#include "zelbasictypes/data/zelguid.h"

#include <gtest/gtest.h>

#include <string>

namespace {

int marks[3]; // what lookups yield: the address tells who answered

/// Knows one service, whose name is also that of the one interface it makes instances with.
class Manager : public testsupport::FakeManager {
public:
    Manager(const char* known, void* answer) : known_(known), answer_(answer) {}
    std::int32_t createInstance(const ZelGuid&, const KorCString& name, void** out) override {
        return getService(name, out);
    }
    std::int32_t getService(const KorCString& name, void** out) override {
        if (!(name == known_)) return failure;
        *out = answer_;
        return 1;
    }
    void incrementCount(std::int32_t* count) override { *count += 10; }
    bool decrementCount(std::int32_t* count) override { return (*count -= 10) == 5; }
    IZelComponentManager* findManager(const KorCString& scope, std::int32_t reserved) override {
        EXPECT_EQ(reserved, 0);
        return scope == "lab" ? lab : nullptr;
    }

    Manager* lab = nullptr;
    std::int32_t failure = 0;

private:
    KorCString known_;
    void* answer_;
};

enum class Call { Service, Instance };

class ManagerAccess : public testing::TestWithParam<Call> {
protected:
    ManagerAccess() {
        root.lab = &lab;
        zelSetManager(&root);
    }
    ~ManagerAccess() override { zelSetScopeName(KorCString()); }

    std::int32_t find(const char* name) {
        found = nullptr;
        return GetParam() == Call::Service ? zelGetService(name, &found)
                                           : zelCreateInstance(ZelGuid(), name, &found);
    }
    std::int32_t findIn(const char* name, const char* scope) {
        found = nullptr;
        return GetParam() == Call::Service ? zelGetServiceIn(name, scope, &found)
                                           : zelCreateInstanceIn(ZelGuid(), name, scope, &found);
    }

    Manager root{"clock", &marks[0]};
    Manager lab{"scale", &marks[1]};
    void* found = nullptr;
};

TEST_P(ManagerAccess, WithoutManagerNothingIsFound) {
    zelSetManager(nullptr);
    found = &marks[2];
    EXPECT_EQ(zelGetService("clock", &found), 0);
    EXPECT_EQ(zelCreateInstance(ZelGuid(), "clock", &found), 0);
    EXPECT_EQ(zelGetServiceIn("scale", "lab", &found), 0);
    EXPECT_EQ(zelFindService("clock", &found), 0);
    EXPECT_EQ(found, &marks[2]);
}

TEST_P(ManagerAccess, RootAnswersWithoutScope) {
    EXPECT_EQ(find("clock"), 1);
    EXPECT_EQ(found, &marks[0]);
    EXPECT_EQ(find("scale"), 0);
    EXPECT_EQ(found, nullptr);
}

TEST_P(ManagerAccess, ScopeIsAskedFirstAndRootBehindIt) {
    zelSetScopeName("lab");
    EXPECT_EQ(find("scale"), 1);
    EXPECT_EQ(found, &marks[1]);
    lab.failure = 2;
    EXPECT_EQ(find("clock"), 1);
    EXPECT_EQ(found, &marks[0]);
    EXPECT_EQ(find("sundial"), 0);
}

TEST_P(ManagerAccess, RootAnswersForAScopeWithoutManager) {
    zelSetScopeName("attic");
    EXPECT_EQ(find("clock"), 1);
    EXPECT_EQ(found, &marks[0]);
}

TEST_P(ManagerAccess, NamedScopeIsAskedAlone) {
    EXPECT_EQ(findIn("scale", "lab"), 1);
    EXPECT_EQ(found, &marks[1]);
    EXPECT_EQ(findIn("clock", "lab"), 0);
    EXPECT_EQ(findIn("clock", "attic"), 0);
    EXPECT_EQ(found, nullptr);
}

TEST_P(ManagerAccess, ScopeNameIsKeptAsACopy) {
    KorCString name("lab");
    zelSetScopeName(name);
    name.setAt(0, 'L');
    EXPECT_EQ(zelScopeName(), "lab");
}

INSTANTIATE_TEST_SUITE_P(Calls, ManagerAccess, testing::Values(Call::Service, Call::Instance),
                         [](const auto& call) {
                             return call.param == Call::Service ? "Service" : "Instance";
                         });

TEST(CountService, LeavesCountingToTheManager) {
    Manager root("", nullptr);
    std::int32_t count = 5;
    zelIncrement(&count);
    EXPECT_EQ(count, 15);
    EXPECT_TRUE(zelDecrement(&count));
    EXPECT_FALSE(zelDecrement(&count));
}

} // namespace
