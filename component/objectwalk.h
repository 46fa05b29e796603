// SPDX-License-Identifier: Apache-2.0
// The class walk: what an object is made of, and which component made it.
//
// The object reports its classes from its own module, so that these records and their fields are
// shared between modules that link the same version of the library.
#pragma once

#include "component/objects/classwalk.h"
#include "component/zelhashtable.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/text/korcstring.h"

#include <vector>

class IZelUnknown;

struct ZelNameHash {
    std::uint32_t operator()(const KorCString& name) const { return name.hash(); }
};

/// One class or interface of an object.
struct ZelClassRecord {
    KorCString name;
    std::int32_t hasBases = 0;
    KorCString parent; ///< the class that was open when this one was reported; null for the first
};

/// The module in which an object's class was compiled. Texts live as long as that module.
struct ZelComponentRecord {
    const char* moduleName = nullptr;
    const char* scopeName = nullptr; ///< may be null
    ZelGuid componentId;
};

/// What an object reports to when `qi` is asked with a null name.
struct ZelObjectWalk {
    std::vector<KorCString> parents; ///< the classes now open, the innermost at the end
    std::vector<ZelClassRecord> classes;
    ZelHashTable<KorCString, bool, ZelNameHash> stopNames{10}; ///< names that end the walk
    ZelComponentRecord* component = nullptr; ///< when set, the walk fills this and nothing else
    bool stopped = false;                    ///< a stop name was met; nothing is recorded any more
};

/// Fills `record` with the module of the object's class. An object that reports no class leaves it
/// as it was. False for a null object.
bool zelComponentOf(IZelUnknown* object, ZelComponentRecord& record);

/// Lists each class of the object once. The parts of the component machinery itself (components,
/// managers, loaders) list nothing. False for a null object.
bool zelListClasses(IZelUnknown* object, std::vector<ZelClassRecord>& out);
