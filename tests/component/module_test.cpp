// SPDX-License-Identifier: Apache-2.0
// A module as the host meets it: loaded from its file, entered by name, counted by the manager.
#include "component/entrypoint.h"
#include "component/izelcompinternal.h"
#include "component/izelcomponent.h"
#include "component/objects/iptr.h"
#include "component/objects/services/izelrandom.h"
#include "component/objectwalk.h"
#include "platform/module.h"
#include "tests/component/iticket.h"
#include "tests/support/fakemanager.h"
#include "tests/support/service.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

class Sevens : public testsupport::Service<IZelRandom> {
public:
    void seed(std::int32_t) override {}
    std::int32_t below(std::int32_t limit) override { return limit - 1; }
};

/// Notes the counts that change through it.
class Manager : public testsupport::FakeManager {
public:
    void incrementCount(std::int32_t* count) override {
        FakeManager::incrementCount(count);
        ++increments;
    }
    bool decrementCount(std::int32_t* count) override {
        ++decrements;
        return FakeManager::decrementCount(count);
    }

    int increments = 0;
    int decrements = 0;
};

/// One module, one manager and one component for all tests; they stay until the process ends.
struct Host {
    Manager manager;
    ZelEntryPoint enter = nullptr;
    IPtr<IZelComponent> component;
    IZelCompInternal* inside = nullptr;

    Host() {
        const platform::Module module = platform::loadModule(TEST_MODULE);
        enter = reinterpret_cast<ZelEntryPoint>(platform::findEntry(module, zelEntryPointName));
        std::int32_t version = 0;
        IZelComponent* made = nullptr;
        if (!enter || enter(&version, &made) != 1 || version != 100) return;
        component = made;
        component->initialize(&manager);
        inside = zelQuery<IZelCompInternal>(component.unknown);
    }
};

Host& host() {
    static auto* one = new Host;
    return *one;
}

class ModuleTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(host().inside, nullptr); }

    static IPtr<ITicket> makeTicket() {
        IZelUnknown* object = nullptr;
        EXPECT_EQ(host().component->createInstance(ticketClassId, &object), 1);
        return IPtr<ITicket>(zelQuery<ITicket>(object));
    }
};

TEST_F(ModuleTest, SaysWhoItIs) {
    KorCString id;
    host().inside->componentId()->toText(id);
    EXPECT_EQ(id, "{7d9a23cb-428c-49c5-a57d-d95863408c16}");
    EXPECT_STREQ(host().inside->moduleName(), "brix");
}

TEST_F(ModuleTest, EnumeratesItsClasses) {
    std::map<std::string, std::string> classes;
    ZelGuid id;
    for (bool more = host().inside->firstClass(&id); more; more = host().inside->nextClass(&id)) {
        KorCString text;
        id.toText(text);
        classes[host().inside->className(id)] = text.c_str();
    }
    const std::map<std::string, std::string> expected = {
        {"DefaultLangInitializer", "{a6c62276-0a76-4531-9855-a196dfbefffc}"},
        {"Ticket", "{71c4e700-0001-0002-0304-05060708090a}"}};
    EXPECT_EQ(classes, expected);
    EXPECT_EQ(host().inside->classCount(), 2);
}

TEST_F(ModuleTest, CountsItsObjectsThroughTheManagerUntilTheLastRelease) {
    const int increments = host().manager.increments;
    const int decrements = host().manager.decrements;
    bool gone = false;
    {
        const IPtr<ITicket> ticket = makeTicket();
        ASSERT_TRUE(ticket);
        ticket->flagWhenGone(&gone);
        EXPECT_EQ(host().manager.increments, increments + 1);
        host().component->terminate();
        EXPECT_FALSE(gone);
    }
    EXPECT_TRUE(gone);
    EXPECT_EQ(host().manager.decrements, decrements + 1);
}

TEST_F(ModuleTest, AsksTheHostForServices) {
    const IPtr<ITicket> ticket = makeTicket();
    ASSERT_TRUE(ticket);
    EXPECT_EQ(ticket->draw(), -1);
    const IPtr<Sevens> random(new Sevens);
    host().manager.offerNew("IZelRandom", [&] { return random.iface; });
    EXPECT_EQ(ticket->draw(), 6);
    host().manager.withdraw("IZelRandom");
    EXPECT_EQ(random->refCount(), 1);
}

TEST_F(ModuleTest, ObjectsNameTheModuleTheyComeFrom) {
    host().inside->setScopeName("lab");
    const IPtr<ITicket> ticket = makeTicket();
    ZelComponentRecord record;
    EXPECT_TRUE(zelComponentOf(ticket.iface, record));
    EXPECT_STREQ(record.moduleName, "brix");
    EXPECT_STREQ(record.scopeName, "lab");
    EXPECT_EQ(record.componentId, *host().inside->componentId());
    host().inside->setScopeName(KorCString());

    std::vector<ZelClassRecord> classes;
    EXPECT_TRUE(zelListClasses(ticket.iface, classes));
    ASSERT_EQ(classes.size(), 2u);
    EXPECT_EQ(classes[0].name, "Ticket");
    EXPECT_EQ(classes[1].name, "ITicket");
    EXPECT_EQ(classes[1].parent, "Ticket");
}

} // namespace
