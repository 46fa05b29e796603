// SPDX-License-Identifier: Apache-2.0
// The class table and its one cursor.
#include "component/zeldefaultclassfactory.h"

#include "component/itemfactory.h"
#include "component/zelhashtable.h"
#include "platform/unload.h"

#include <cstring>

namespace {

using ClassTable = ZelHashTable<ZelGuid, ZelItemFactory*, ZelGuidHash>;

ClassTable& classTable() {
    static auto* const table = new ClassTable(100);
    return *table;
}

/// With the module their memory goes too.
const platform::AtUnload freeing([] {
    delete zelClassFactory();
    delete &classTable();
});

constinit ClassTable::Cursor classCursor;

ZelItemFactory* findItem(const ZelGuid& id) {
    ZelItemFactory* const* found = classTable().find(id);
    return found ? *found : nullptr;
}

/// Hands out the identifier that the cursor stands on.
bool currentClass(ZelGuid* out) {
    if (!classCursor) return false;
    *out = classCursor.key();
    return true;
}

} // namespace

std::int32_t ZelDefaultClassFactory::createInstance(const ZelGuid& id, IZelUnknown** out) {
    ZelItemFactory* item = findItem(id);
    if (!item) return 0;
    std::int32_t kind = 0;
    *out = item->create(&kind);
    return kind;
}

std::int32_t ZelDefaultClassFactory::classCount() { return classTable().count(); }

bool ZelDefaultClassFactory::firstClass(ZelGuid* out) {
    classCursor = classTable().first();
    return currentClass(out);
}

bool ZelDefaultClassFactory::nextClass(ZelGuid* out) {
    if (classCursor) classCursor.advance();
    return currentClass(out);
}

const char* ZelDefaultClassFactory::className(const ZelGuid& id) {
    const ZelItemFactory* item = findItem(id);
    return item ? item->className() : nullptr;
}

void ZelDefaultClassFactory::classesInCategory(const char* name, std::vector<ZelGuid>& out) {
    for (auto at = classTable().first(); at; at.advance()) {
        const char* category = at.value()->category();
        if (name && category && std::strcmp(name, category) == 0) out.push_back(at.key());
    }
}

ZelDefaultClassFactory* zelClassFactory() {
    static auto* const factory = new ZelDefaultClassFactory;
    return factory;
}

void zelRegisterClass(ZelItemFactory* item) {
    if (item) classTable().findOrInsert(item->classId) = item;
}
