// SPDX-License-Identifier: Apache-2.0
// Lookups and counting over the host's component manager.
#include "component/manageraccess.h"

#include "component/izelcomponentmanager.h"
#include "component/objects/countservice.h"

namespace {

/// What the plain count service leaves in a count that reached zero.
constexpr std::int32_t destroyedCount = -42;

constinit IZelComponentManager* manager = nullptr;
constinit KorCString scopeName;

/// Asks the scope's manager and then the root manager; `ask` answers 1 on success.
template <class Ask> std::int32_t askScopeThenRoot(Ask ask) {
    if (!manager) return 0;
    if (!scopeName.isEmpty()) {
        IZelComponentManager* scoped = manager->findManager(scopeName, 0);
        if (scoped && ask(scoped) == 1) return 1;
    }
    return ask(manager);
}

} // namespace

IZelComponentManager* zelManager() { return manager; }
void zelSetManager(IZelComponentManager* newManager) { manager = newManager; }

const KorCString& zelScopeName() { return scopeName; }
void zelSetScopeName(const KorCString& name) { scopeName = name; }

std::int32_t zelGetService(const KorCString& name, void** out) {
    return askScopeThenRoot([&](IZelComponentManager* m) { return m->getService(name, out); });
}

std::int32_t zelCreateInstance(const ZelGuid& id, const KorCString& interfaceName, void** out) {
    return askScopeThenRoot(
        [&](IZelComponentManager* m) { return m->createInstance(id, interfaceName, out); });
}

std::int32_t zelGetServiceIn(const KorCString& name, const KorCString& scope, void** out) {
    IZelComponentManager* scoped = manager ? manager->findManager(scope, 0) : nullptr;
    return scoped ? scoped->getService(name, out) : 0;
}

std::int32_t zelCreateInstanceIn(const ZelGuid& id, const KorCString& interfaceName,
                                 const KorCString& scope, void** out) {
    IZelComponentManager* scoped = manager ? manager->findManager(scope, 0) : nullptr;
    return scoped ? scoped->createInstance(id, interfaceName, out) : 0;
}

std::int32_t zelFindService(const char* name, void** out) {
    return zelGetService(KorCString::borrow(name), out);
}

void zelIncrement(std::int32_t* count) {
    if (manager) return manager->incrementCount(count);
    ++*count;
}

bool zelDecrement(std::int32_t* count) {
    if (manager) return manager->decrementCount(count);
    if ((*count)-- != 1) return false;
    *count = destroyedCount;
    return true;
}
