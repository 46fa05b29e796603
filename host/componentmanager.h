// SPDX-License-Identifier: Apache-2.0
// The reference host's component manager: hands out services and instances by name and identifier,
// keeps a manager for each scope, and counts references atomically.
#pragma once

#include "component/izelcomponentmanager.h"
#include "component/objects/iptr.h"
#include "zelbasictypes/data/zelguid.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace host {

/// Offers are made before other threads look anything up. The manager must outlive every module and
/// every counted object; `clear` lets go of what it holds and goes on counting.
class ComponentManager : public IZelComponentManager {
public:
    /// Makes a new object, without a reference.
    using Maker = std::function<IZelUnknown*()>;

    /// Each lookup of `name` gives this object, of which a reference is held.
    void offerService(std::string_view name, IZelUnknown* service);
    /// Each lookup of `name` gives a new object.
    void offerMaker(std::string_view name, Maker maker);
    /// `chiefInterface` is the name by which `withdraw` knows the class.
    void offerClass(const ZelGuid& id, std::string_view chiefInterface, Maker maker);
    /// Takes back what is offered under the name of its interface; false when nothing is.
    bool withdraw(std::string_view name);
    /// The manager of a scope, made at the first call.
    ComponentManager& scope(std::string_view name);
    /// Withdraws everything, the scopes too.
    void clear();

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "ComponentManager"; }

    std::int32_t createInstance(const ZelGuid& id, const KorCString& wanted, void** out) override;
    std::int32_t getService(const KorCString& name, void** out) override;
    std::int32_t status() override { return '1'; }
    void incrementCount(std::int32_t* counter) override;
    bool decrementCount(std::int32_t* counter) override;
    IZelComponentManager* findManager(const KorCString& scope, std::int32_t reserved) override;

private:
    struct OfferedClass {
        std::string chiefInterface;
        Maker maker;
    };

    std::map<std::string, IPtr<IZelUnknown>, std::less<>> services_;
    std::map<std::string, Maker, std::less<>> makers_;
    std::map<ZelGuid, OfferedClass, ZelGuidLess> classes_;
    std::map<std::string, IPtr<ComponentManager>, std::less<>> scopes_;
};

/// The root manager of this program. It is never destroyed, so that the last references, given back
/// by static objects at the very end, still find it.
ComponentManager& rootManager();

} // namespace host
