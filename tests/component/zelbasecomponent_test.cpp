// SPDX-License-Identifier: Apache-2.0
// The component object, the way to it, its self-tests.
#include "component/zelbasecomponent.h"

#include "component/entrypoint.h"
#include "component/izelclassfactory.h"
#include "component/izelcomplanginitializer.h"
#include "component/manageraccess.h"
#include "component/moduleidentity.h"
#include "component/objects/queryinterface.h"
#include "component/objects/services/izelerrorservice.h"
#include "component/selftests.h"
#include "tests/support/fakemanager.h"
#include "tests/support/service.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

const ZelModuleIdentity identity{"tested", ZelGuid{0xBEEF, 0, 0, {}}};

class Errors : public testsupport::Service<IZelErrorService> {
public:
    void report(const KorString& text, const std::int32_t* kind,
                const KorCString& source) override {
        reports += std::string(text.toUtf8()) + "/" + std::to_string(*kind) + "/" +
                   std::string(source.view()) + ";";
    }
    std::string reports;
};

class TestService : public testsupport::Service<IZelSelfTestService> {
public:
    void take(const ZelSelfTest& test) override {
        names += test.name;
        names += test.run() ? "+" : "-";
        zelRunSelfTests(this);
    }
    std::string names;
};

class BaseComponent : public testing::Test {
protected:
    ~BaseComponent() override {
        zelSetManager(nullptr);
        zelSetScopeName(KorCString());
    }
    IPtr<ZelBaseComponent> component{new ZelBaseComponent};
};

TEST_F(BaseComponent, AnswersForItsInterfaces) {
    IZelUnknown* root = component.unknown;
    EXPECT_EQ(zelQuery<IZelComponent>(root), component.iface);
    EXPECT_EQ(zelQuery<IZelCompInternal>(root), component.iface);
    EXPECT_EQ(zelQuery<IZelUnknown>(root), root);
}

TEST_F(BaseComponent, SpeaksForTheModule) {
    EXPECT_EQ(*component->componentId(), identity.componentId);
    EXPECT_EQ(component->componentId(), zelComponentId());
    EXPECT_STREQ(component->moduleName(), "tested");
    component->setScopeName("lab");
    EXPECT_EQ(*component->scopeName(), "lab");
    EXPECT_EQ(zelScopeName(), "lab");
    component->setBreakEnabled(false);
    EXPECT_FALSE(zelBreakEnabled());
    component->setBreakEnabled(true);
    EXPECT_TRUE(component->breakEnabled());
}

TEST_F(BaseComponent, KeepsTheManagerAfterItsEnd) {
    testsupport::FakeManager manager;
    zelSetManager(nullptr);
    component->initialize(&manager);
    component->terminate();
    EXPECT_EQ(zelManager(), &manager);
}

TEST_F(BaseComponent, OffersNothingWithoutAClassFactory) {
    IZelClassFactory* const classes = std::exchange(zelModuleClasses, nullptr);
    IZelUnknown* out = component.unknown;
    ZelGuid id;
    EXPECT_EQ(component->createInstance(id, &out), 0);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(component->classCount(), 0);
    EXPECT_FALSE(component->firstClass(&id));
    EXPECT_FALSE(component->nextClass(&id));
    EXPECT_EQ(component->className(id), nullptr);

    zelModuleClasses = classes;
    out = component.unknown;
    EXPECT_EQ(component->createInstance(id, &out), 0);
    EXPECT_EQ(out, component.unknown);
}

TEST_F(BaseComponent, OffersTheLanguageHookOfEveryModule) {
    ZelGuid id;
    ASSERT_TRUE(component->firstClass(&id));
    EXPECT_FALSE(component->nextClass(&id));
    EXPECT_EQ(component->classCount(), 1);
    IZelUnknown* hook = nullptr;
    EXPECT_EQ(component->createInstance(id, &hook), 2);
    EXPECT_NE(zelQuery<IZelCompLangInitializer>(hook), nullptr);
}

TEST_F(BaseComponent, RunsSelfTestsOnceAtATime) {
    zelAddSelfTest({"sound", [] { return true; }});
    zelAddSelfTest({"broken", [] { return false; }});
    TestService service;
    component->runSelfTests(&service);
    EXPECT_EQ(service.names, "sound+broken-");
}

TEST_F(BaseComponent, ReportsAMissingTestService) {
    component->runSelfTests(nullptr); // without an error service there is nobody to tell
    testsupport::FakeManager manager;
    auto* errors = new Errors;
    manager.offer("IZelErrorService", errors);
    component->runSelfTests(nullptr);
    component->runSelfTests(nullptr);
    EXPECT_EQ(errors->reports, "Unable to get test service/1/;Unable to get test service/1/;");
}

class ThrowingFactory : public IZelComponentFactory {
public:
    IZelComponent* create() override { throw std::runtime_error("no component today"); }
};

class EntryPointTest : public testing::Test {
protected:
    ~EntryPointTest() override { zelComponentFactory = factory; }

    IZelComponentFactory* const factory = zelComponentFactory;
    std::int32_t version = -1;
    IZelComponent* component = nullptr;
};

TEST_F(EntryPointTest, GivesANewComponentEachTime) {
    ASSERT_EQ(EntryPoint(&version, &component), 1);
    EXPECT_EQ(version, 100);
    EXPECT_EQ(component->refCount(), 0);
    const IPtr<IZelComponent> first(component);
    ASSERT_EQ(EntryPoint(&version, &component), 1);
    const IPtr<IZelComponent> second(component);
    EXPECT_NE(first.iface, second.iface);
    EXPECT_EQ(zelModuleComponent, second.iface);
}

TEST_F(EntryPointTest, WithoutPlaceOrFactoryChangesNothing) {
    EXPECT_EQ(EntryPoint(&version, nullptr), 0);
    zelComponentFactory = nullptr;
    EXPECT_EQ(EntryPoint(&version, &component), 0);
    EXPECT_EQ(version, -1);
}

TEST_F(EntryPointTest, LetsNoExceptionPass) {
    ThrowingFactory throwing;
    zelComponentFactory = &throwing;
    component = reinterpret_cast<IZelComponent*>(this);
    EXPECT_EQ(EntryPoint(&version, &component), 0);
    EXPECT_EQ(version, 0);
    EXPECT_EQ(component, nullptr);
}

} // namespace
