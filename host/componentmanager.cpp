// SPDX-License-Identifier: Apache-2.0
// Lookups and counting.
#include "host/componentmanager.h"

#include "component/objects/queryinterface.h"
#include "zelbasictypes/text/korcstring.h"

#include <atomic>

namespace host {
namespace {

constexpr std::int32_t found = 1;
constexpr std::int32_t missing = 0;

/// Stores the object seen as the interface; leaves `*out` alone when it has none.
std::int32_t answer(IZelUnknown* object, const KorCString& wanted, void** out) {
    void* seen = nullptr;
    object->qi(wanted.c_str(), &seen);
    if (!seen) return missing;
    *out = seen;
    return found;
}

/// The same for an object that nobody holds yet: without the interface it goes again.
std::int32_t answerNew(IZelUnknown* object, const KorCString& wanted, void** out) {
    if (!object) return missing;
    if (answer(object, wanted, out) == found) return found;
    object->addRef();
    object->release();
    return missing;
}

} // namespace

void ComponentManager::offerService(std::string_view name, IZelUnknown* service) {
    services_[std::string(name)] = service;
}

void ComponentManager::offerMaker(std::string_view name, Maker maker) {
    makers_[std::string(name)] = std::move(maker);
}

void ComponentManager::offerClass(const ZelGuid& id, std::string_view chiefInterface, Maker maker) {
    classes_[id] = {std::string(chiefInterface), std::move(maker)};
}

bool ComponentManager::withdraw(std::string_view name) {
    const std::string key(name);
    const auto inClass = [&](const auto& entry) { return entry.second.chiefInterface == key; };
    return services_.erase(key) + makers_.erase(key) + std::erase_if(classes_, inClass) > 0;
}

ComponentManager& ComponentManager::scope(std::string_view name) {
    IPtr<ComponentManager>& manager = scopes_[std::string(name)];
    if (!manager) manager = new ComponentManager;
    return *manager.iface;
}

/// The maps are emptied before what they held is let go of: a last release may look something up.
void ComponentManager::clear() {
    const auto services = std::exchange(services_, {});
    const auto makers = std::exchange(makers_, {});
    const auto classes = std::exchange(classes_, {});
    const auto scopes = std::exchange(scopes_, {});
}

void ComponentManager::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelComponentManager>(this, className(), name, result);
}

std::int32_t ComponentManager::createInstance(const ZelGuid& id, const KorCString& wanted,
                                              void** out) {
    const auto offered = classes_.find(id);
    if (offered == classes_.end() || !wanted.c_str()) return missing;
    return answerNew(offered->second.maker(), wanted, out);
}

std::int32_t ComponentManager::getService(const KorCString& name, void** out) {
    if (!name.c_str()) return missing;
    const auto service = services_.find(name.view());
    if (service != services_.end()) return answer(service->second.iface, name, out);
    const auto maker = makers_.find(name.view());
    return maker == makers_.end() ? missing : answerNew(maker->second(), name, out);
}

void ComponentManager::incrementCount(std::int32_t* counter) { ++std::atomic_ref(*counter); }

bool ComponentManager::decrementCount(std::int32_t* counter) {
    return --std::atomic_ref(*counter) == 0;
}

IZelComponentManager* ComponentManager::findManager(const KorCString& scope, std::int32_t) {
    const auto manager = scopes_.find(scope.view());
    return manager == scopes_.end() ? nullptr : manager->second.iface;
}

ComponentManager& rootManager() {
    static auto* const manager = new ComponentManager;
    return *manager;
}

} // namespace host
