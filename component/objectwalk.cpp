// SPDX-License-Identifier: Apache-2.0
// Recording the classes of an object.
#include "component/objectwalk.h"

#include "component/manageraccess.h"
#include "component/moduleidentity.h"
#include "component/objects/izelunknown.h"

#include <algorithm>

namespace {

constexpr const char* machineryNames[] = {"IZelComponent", "IZelComponentManager",
                                          "IZelComponentLoader", "IZelComponentContainer",
                                          "KorComponentManager"};

/// The class reported first decides.
void identify(ZelComponentRecord& record) {
    if (record.moduleName) return;
    record.moduleName = zelModuleName();
    record.scopeName = zelScopeName().c_str();
    record.componentId = *zelComponentId();
}

void dropAll(ZelObjectWalk& walk) {
    walk.parents.clear();
    walk.classes.clear();
}

bool isStopName(const ZelObjectWalk& walk, const char* name) {
    return walk.stopNames.find(KorCString::borrow(name)) != nullptr;
}

/// Whether an earlier record says the same; the first record, the object's own class, has no parent
/// to compare.
bool isRepeated(const std::vector<ZelClassRecord>& classes, std::size_t i) {
    for (std::size_t j = 0; j < i; ++j) {
        if (!(classes[j].name == classes[i].name)) continue;
        if (j == 0 || classes[j].parent == classes[i].parent) return true;
    }
    return false;
}

/// A class reached twice through virtual bases stays once.
void removeRepeated(std::vector<ZelClassRecord>& classes) {
    for (std::size_t i = classes.size(); i-- > 1;) {
        if (isRepeated(classes, i)) classes.erase(classes.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

} // namespace

void zelWalkClass(const char* name, std::int32_t hasBases, ZelObjectWalk* walk) {
    if (walk->component) return identify(*walk->component);
    walk->stopped = walk->stopped || isStopName(*walk, name);
    if (walk->stopped) return dropAll(*walk);
    walk->classes.push_back({name, hasBases, KorCString()});
    if (!walk->parents.empty()) walk->classes.back().parent = walk->parents.back();
    if (hasBases) walk->parents.push_back(name);
}

void zelLeaveClass(ZelObjectWalk* walk) {
    if (walk->component) return;
    if (walk->stopped) return dropAll(*walk);
    if (!walk->parents.empty()) walk->parents.pop_back();
}

bool zelComponentOf(IZelUnknown* object, ZelComponentRecord& record) {
    if (!object) return false;
    ZelObjectWalk walk;
    walk.component = &record;
    object->qi(nullptr, reinterpret_cast<void**>(&walk), 0);
    return true;
}

bool zelListClasses(IZelUnknown* object, std::vector<ZelClassRecord>& out) {
    if (!object) return false;
    ZelObjectWalk walk;
    for (const char* name : machineryNames) {
        walk.stopNames.findOrInsert(KorCString::borrow(name)) = true;
    }
    object->qi(nullptr, reinterpret_cast<void**>(&walk), 0);
    if (walk.stopped) walk.classes.clear();
    removeRepeated(walk.classes);
    out = std::move(walk.classes);
    return true;
}
