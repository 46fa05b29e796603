// SPDX-License-Identifier: Apache-2.0
// The import module in a host that loads and unloads it as it needs it, with another manager each
// time.
#include "cadimport/modelling/importtarget.h"
#include "client/itessoracadimporterclient.h"
#include "component/entrypoint.h"
#include "component/izelcompinternal.h"
#include "component/izelcomponent.h"
#include "component/objects/services/iguisimpledlg.h"
#include "component/objects/services/izeltranslatorservice.h"
#include "platform/module.h"
#include "tests/support/fakemanager.h"
#include "tests/support/worker.h"
#include "zelbasictypes/memory/bucketmemorypool.h"
#include "zelbasictypes/text/zeltrivialtranslator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <list>
#include <set>
#include <string>
#include <utility>

/// Qt goes with the module, and what it leaves behind has no name then by which a leak checker
/// could pass it over; the host's tests with a Qt of their own look for leaks.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

namespace {

class Dialog : public testsupport::Service<IGuiSimpleDlg> {
public:
    std::int32_t show(std::int32_t, const KorString&, const KorString&, bool, bool, bool) override {
        ++shown;
        return 0;
    }
    int shown = 0;
};

class Target : public testsupport::Service<IZelImportTarget> {
    IZelImportedModel* resolveModel(void*) override { return nullptr; }
};

class Translators : public testsupport::Service<IZelTranslatorService> {
public:
    IZelTranslator* translatorFor(const ZelGuid*) override { return own.iface; }

    IPtr<IZelTranslator> own{new ZelTrivialTranslator};
};

class Host {
public:
    Host() {
        manager.offer(IGuiSimpleDlg::interfaceName, dialog.iface);
        manager.offer(IZelTranslatorService::interfaceName, translators.iface);
        module = platform::loadModule(BRIX_MODULE);
        EXPECT_NE(module, nullptr) << platform::moduleError();
        const auto enter =
            reinterpret_cast<ZelEntryPoint>(platform::findEntry(module, zelEntryPointName));
        IZelComponent* made = nullptr;
        if (!enter || enter(nullptr, &made) != 1) return;
        component = made;
        component->initialize(&manager);
        inside = zelQuery<IZelCompInternal>(made);
        inside->setScopeName("lab");
    }
    void expectIdentity() {
        KorCString id;
        inside->componentId()->toText(id);
        EXPECT_EQ(id, "{7d9a23cb-428c-49c5-a57d-d95863408c16}");
        EXPECT_STREQ(inside->moduleName(), "brix");
        std::set<std::string> classes;
        ZelGuid each;
        for (bool more = inside->firstClass(&each); more; more = inside->nextClass(&each))
            classes.insert(inside->className(each));
        EXPECT_EQ(classes,
                  (std::set<std::string>{"DefaultLangInitializer", "TessoraCADImporterClient"}));
    }
    /// One import whose server does nothing, and one whose server isn't there.
    void importTwice() {
        IZelUnknown* made = nullptr;
        ASSERT_EQ(component->createInstance(zelImportClientClassId, &made), 1);
        const IPtr<ITessoraCADImporterClient> client(zelQuery<ITessoraCADImporterClient>(made));
        const IPtr<Target> target(new Target);
        std::list<KorString> files;
        for (const char* server : {FAKE_SERVER, "/no/such/server"}) {
            EXPECT_FALSE(client->importModel({}, server, {KorString("part.step")}, target.iface,
                                             nullptr, nullptr, files));
        }
        EXPECT_EQ(std::exchange(dialog->shown, 0), 4) << "two questions, two notices";
    }
    ~Host() {
        if (component) component->terminate();
        component = nullptr;
        currentBucketPool()->clear(); // it may hold texts that only the module can free
        platform::unloadModule(module);
        EXPECT_EQ(translators->own->refCount(), 1) << "the module keeps its translator";
    }

private:
    testsupport::FakeManager manager;
    IPtr<Dialog> dialog{new Dialog};
    IPtr<Translators> translators{new Translators};
    platform::Module module = nullptr;
    IPtr<IZelComponent> component;
    IZelCompInternal* inside = nullptr;
};

int rounds() {
    const char* wanted = std::getenv("ROUNDS");
    return wanted ? std::atoi(wanted) : 10;
}

} // namespace

/// A thread that called the module lives on behind its end, and one of them ends then.
TEST(Unloading, TakesTheModuleAwayAtOnceWhicheverThreadCalledIt) {
    testsupport::Worker longLived;
    for (int i = 0; i < rounds() && !HasFailure(); ++i) {
        testsupport::Worker shortLived;
        Host host;
        host.expectIdentity();
        longLived([&] { host.importTwice(); });
#ifndef _WIN32 // Qt is in the module there, and watches all threads but its first to their ends
        shortLived([&] { host.importTwice(); });
        host.importTwice();
#endif
    }
}
