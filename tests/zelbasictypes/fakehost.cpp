// SPDX-License-Identifier: Apache-2.0
// The component manager of the tests.
#include "tests/zelbasictypes/fakehost.h"

#include "tests/support/fakemanager.h"

#include <atomic>
#include <map>
#include <mutex>
#include <string>

namespace {

class Manager : public testsupport::FakeManager {
public:
    std::int32_t getService(const KorCString& name, void** out) override {
        if (void (*call)() = whenAsked) call();
        const std::lock_guard hold(mutex);
        ++lookUps[name.c_str()];
        const auto found = services.find(name.c_str());
        if (found == services.end()) return 0;
        *out = found->second;
        return 1;
    }
    void incrementCount(std::int32_t* count) override { ++std::atomic_ref(*count); }
    bool decrementCount(std::int32_t* count) override { return --std::atomic_ref(*count) == 0; }

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

const bool installed = (manager(), true);

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
