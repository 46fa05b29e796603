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
#include "zelbasictypes/memory/bucketmemorypool.h"
#include "zelbasictypes/text/zeltrivialtranslator.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <list>
#include <thread>
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

/// A thread of the host that does one thing after the other and lives as long as the host.
class Worker {
public:
    ~Worker() {
        (*this)(nullptr);
        thread.join();
    }
    void operator()(std::function<void()> next) {
        task = std::move(next);
        told = true;
        told.notify_all();
        told.wait(true);
    }

private:
    void run() {
        for (bool more = true; more;) {
            told.wait(false);
            more = task != nullptr;
            if (more) task();
            told = false;
            told.notify_all();
        }
    }

    std::function<void()> task;
    std::atomic<bool> told{false};
    std::thread thread{[this] { run(); }};
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
        zelQuery<IZelCompInternal>(made)->setScopeName("lab");
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
};

int rounds() {
    const char* wanted = std::getenv("ROUNDS");
    return wanted ? std::atoi(wanted) : 10;
}

} // namespace

/// A thread that called the module lives on behind its end, and one of them ends then.
TEST(Unloading, TakesTheModuleAwayAtOnceWhicheverThreadCalledIt) {
    Worker longLived;
    for (int i = 0; i < rounds() && !HasFailure(); ++i) {
        Worker shortLived;
        Host host;
        longLived([&] { host.importTwice(); });
#ifndef _WIN32 // Qt is in the module there, and watches all threads but its first to their ends
        shortLived([&] { host.importTwice(); });
        host.importTwice();
#endif
    }
}
