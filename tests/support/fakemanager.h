// SPDX-License-Identifier: Apache-2.0
// A component manager for tests: services and classes are what the test puts in.
#pragma once

#include "component/izelcomponentmanager.h"
#include "component/manageraccess.h"
#include "component/objects/iptr.h"
#include "tests/support/service.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace testsupport {

/// While it lives it is the manager of the test program's copy of the library. Counting is plain:
/// tests that use it have one thread.
class FakeManager : public Service<IZelComponentManager> {
public:
    using Maker = std::function<IZelUnknown*()>;

    FakeManager() {
        addRef();
        zelSetManager(this);
    }
    ~FakeManager() override { zelSetManager(nullptr); }

    /// A service that is one object; the manager keeps it alive.
    void offer(const char* name, IZelUnknown* service) {
        kept.emplace_back(service);
        offerNew(name, [service] { return service; });
    }
    /// A service of which each lookup yields what `make` gives.
    void offerNew(const char* name, Maker make) { services[name] = std::move(make); }
    void withdraw(const char* name) { services.erase(name); }
    /// The one class that instances can be made of, whatever the identifier.
    void offerClass(const char* wanted, Maker make) { classes[wanted] = std::move(make); }

    std::vector<std::string> lookups; ///< the names asked for, in order

    std::int32_t createInstance(const ZelGuid&, const KorCString& name, void** out) override {
        return find(classes, name, out);
    }
    std::int32_t getService(const KorCString& name, void** out) override {
        lookups.emplace_back(name.c_str());
        return find(services, name, out);
    }
    std::int32_t status() override { return 0; }
    void incrementCount(std::int32_t* count) override { ++*count; }
    bool decrementCount(std::int32_t* count) override { return --*count == 0; }
    IZelComponentManager* findManager(const KorCString&, std::int32_t) override { return nullptr; }

private:
    using Makers = std::map<std::string, Maker>;

    static std::int32_t find(const Makers& makers, const KorCString& name, void** out) {
        const auto found = makers.find(name.c_str());
        if (found == makers.end()) return 0;
        IZelUnknown* object = found->second();
        if (!object) return 0;
        object->qi(name.c_str(), out);
        return *out ? 1 : 0;
    }

    Makers services;
    Makers classes;
    std::vector<IPtr<IZelUnknown>> kept;
};

} // namespace testsupport
