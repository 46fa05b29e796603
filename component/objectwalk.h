// SPDX-License-Identifier: Apache-2.0
/// @file
/// The class walk: what an object is made of, and which component made it.
///
/// The object reports its classes from its own module. These records therefore cross module
/// boundaries, and both modules must be built with the same version of the library.
#pragma once

#include "component/objects/classwalk.h"
#include "component/zelhashtable.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/text/korcstring.h"

#include <vector>

class IZelUnknown;

/// The hash function of tables whose keys are names.
struct ZelNameHash {
    /// As KorCString::hash().
    std::uint32_t operator()(const KorCString& name) const { return name.hash(); }
};

/// One class or interface of an object.
struct ZelClassRecord {
    /// Its name.
    KorCString name;
    std::int32_t hasBases = 0; ///< 1 when its bases were reported too
    KorCString parent; ///< the class that this one is a base of; null for the object's own class
};

/// The module in which an object's class was compiled. Its texts live as long as that module.
struct ZelComponentRecord {
    const char* moduleName = nullptr; ///< the short name
    const char* scopeName = nullptr;  ///< may be null
    ZelGuid componentId;              ///< nil for a program
};

/// The state of one walk, which the object reports to when `qi` is called with a null name.
struct ZelObjectWalk {
    std::vector<KorCString> parents;     ///< the open classes, the innermost at the end
    std::vector<ZelClassRecord> classes; ///< what was reported
    ZelHashTable<KorCString, bool, ZelNameHash> stopNames{10}; ///< names that end the walk
    ZelComponentRecord* component = nullptr; ///< when set, the walk fills this and nothing else
    bool stopped = false;                    ///< a stop name was met; nothing is recorded any more
};

/// Fills `record` with the module of the object's class. An object that reports no class leaves it
/// unchanged. False for a null object.
bool zelComponentOf(IZelUnknown* object, ZelComponentRecord& record);

/// Replaces `out` by the classes of the object, each once. Parts of the component machinery itself
/// (components, managers, loaders) have none. False, with `out` left alone, for a null object.
bool zelListClasses(IZelUnknown* object, std::vector<ZelClassRecord>& out);
