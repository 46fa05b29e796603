// SPDX-License-Identifier: Apache-2.0
// Loads the component, runs its self-tests, rolls a die, and asks the counter what it has seen.
#include "component/entrypoint.h"
#include "component/izelcompinternal.h"
#include "component/izelcomponent.h"
#include "component/izelcomponentmanager.h"
#include "component/manageraccess.h"
#include "component/objects/iptr.h"
#include "component/objects/queryinterface.h"
#include "component/objects/services/izelrandom.h"
#include "component/selftests.h"
#include "idie.h"
#include "platform/module.h"

#include <atomic>
#include <iostream>
#include <random>

namespace {

template <class Interface> class Service : public Interface {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<Interface>(this, className(), name, result);
    }
    const char* className() override { return "Service"; }
};

class Random : public Service<IZelRandom> {
public:
    void seed(std::int32_t value) override { engine_.seed(static_cast<unsigned>(value)); }
    std::int32_t below(std::int32_t limit) override {
        return std::uniform_int_distribution(0, limit - 1)(engine_);
    }

private:
    std::mt19937 engine_;
};

class SelfTests : public Service<IZelSelfTestService> {
public:
    void take(const ZelSelfTest& test) override {
        const bool passed = test.run();
        std::cout << test.name << ": " << (passed ? "passed" : "FAILED") << '\n';
        failures += passed ? 0 : 1;
    }

    int failures = 0;
};

class Manager : public Service<IZelComponentManager> {
public:
    std::int32_t createInstance(const ZelGuid&, const KorCString&, void**) override { return 0; }
    std::int32_t getService(const KorCString& name, void** out) override {
        if (name != IZelRandom::interfaceName) return 0;
        *out = static_cast<IZelRandom*>(random_.iface);
        return 1;
    }
    std::int32_t status() override { return 0; }
    void incrementCount(std::int32_t* count) override { ++std::atomic_ref(*count); }
    bool decrementCount(std::int32_t* count) override { return --std::atomic_ref(*count) == 0; }
    IZelComponentManager* findManager(const KorCString&, std::int32_t) override { return nullptr; }

private:
    IPtr<Random> random_{new Random};
};

template <class Interface> IPtr<Interface> make(IZelComponent& component, const ZelGuid& id) {
    IZelUnknown* made = nullptr;
    component.createInstance(id, &made);
    return IPtr<Interface>(zelQuery<Interface>(made));
}

bool tryDice(IZelComponent& component) {
    const IPtr<SelfTests> tests(new SelfTests);
    zelQuery<IZelCompInternal>(&component)->runSelfTests(tests.iface);
    const IPtr<IDie> die = make<IDie>(component, dieClassId);
    const IPtr<IRollCounter> counter = make<IRollCounter>(component, rollCounterClassId);
    if (!die || !counter || tests->failures > 0) return false;
    const std::int32_t rolled = die->roll();
    std::cout << "rolled " << rolled << ", " << counter->rolls() << " rolls in all\n";
    return rolled >= 1 && rolled <= 6 && counter->rolls() == 2;
}

} // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: try-dice MODULE\n";
        return 2;
    }
    static Manager& manager = *new Manager; // outlives everything that it counts
    zelSetManager(&manager);
    const platform::Module module = platform::loadModule(words[1]);
    const auto enter =
        module ? reinterpret_cast<ZelEntryPoint>(platform::findEntry(module, zelEntryPointName))
               : nullptr;
    IZelComponent* made = nullptr;
    if (!enter || enter(nullptr, &made) != 1) {
        std::cerr << "no component in " << words[1] << ' ' << platform::moduleError() << '\n';
        return 1;
    }
    IPtr<IZelComponent> component(made);
    component->initialize(&manager);
    const bool works = tryDice(*component.iface);
    component->terminate();
    component = nullptr;
    platform::unloadModule(module);
    return works ? 0 : 1;
}
