// SPDX-License-Identifier: Apache-2.0
// The component manager of the tests.
#include "tests/zelbasictypes/fakehost.h"

#include "component/izelcomponentmanager.h"
#include "component/manageraccess.h"
#include "component/objects/queryinterface.h"

#include <atomic>
#include <map>
#include <mutex>
#include <string>

namespace {

class Manager : public IZelComponentManager {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<IZelComponentManager>(this, className(), name, result);
    }
    const char* className() override { return "FakeManager"; }

    std::int32_t createInstance(const ZelGuid&, const KorCString&, void**) override { return 0; }
    std::int32_t getService(const KorCString& name, void** out) override {
        if (void (*call)() = whenAsked) call();
        const std::lock_guard hold(mutex);
        ++lookUps[name.c_str()];
        const auto found = services.find(name.c_str());
        if (found == services.end()) return 0;
        *out = found->second;
        return 1;
    }
    std::int32_t status() override { return 0; }
    void incrementCount(std::int32_t* count) override { ++std::atomic_ref(*count); }
    bool decrementCount(std::int32_t* count) override { return --std::atomic_ref(*count) == 0; }
    IZelComponentManager* findManager(const KorCString&, std::int32_t) override { return nullptr; }

    std::atomic<void (*)()> whenAsked{nullptr};
    std::mutex mutex;
    std::map<std::string, void*> services;
    std::map<std::string, int> lookUps;
};

/// Never destroyed: counts change until the very end of the process.
Manager& manager() {
    static Manager* const one = new Manager;
    return *one;
}

const bool installed = (zelSetManager(&manager()), true);

} // namespace

namespace fakehost {

void offer(const char* name, void* service) {
    const std::lock_guard hold(manager().mutex);
    manager().services[name] = service;
}

void whenAsked(void (*call)()) { manager().whenAsked = call; }

void withdrawAll() {
    whenAsked(nullptr);
    const std::lock_guard hold(manager().mutex);
    manager().services.clear();
    manager().lookUps.clear();
}

int lookUps(const char* name) {
    const std::lock_guard hold(manager().mutex);
    return manager().lookUps[name];
}

} // namespace fakehost
