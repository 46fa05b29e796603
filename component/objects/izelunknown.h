// SPDX-License-Identifier: Apache-2.0
/// @file
/// The root of all interfaces: a counted object that is asked for its interfaces by name.
#pragma once

#include "component/objects/zelshared.h"

struct ZelObjectWalk;

/// The root of all interfaces. Every interface derives virtually from this class, so that an object
/// with several interfaces has one count. Each interface names itself in a static `interfaceName`,
/// which is the text that `qi` and the component manager know it by. An interface is a table of
/// operations in a fixed order; entries that are called `reserved1` and so on keep the places of
/// operations that no module here calls, and do nothing.
///
/// Ownership and counting are described in zelshared.h. A host implements its services
/// (component/objects/services/) as such interfaces. Every service may be missing, and calls arrive
/// on the thread of whoever needs it.
class IZelUnknown : public ZelShared {
public:
    static constexpr const char* interfaceName = "IZelUnknown";

    /// With a name: stores in `*result` the object seen as that interface, or null when it has no
    /// such interface. Names are compared exactly, and no reference is taken.
    ///
    /// With a null name: `result` points to a ZelObjectWalk, and the class reports its names to it.
    /// `reserved` is always 0.
    virtual void qi(const char* name, void** result, std::int32_t reserved = 0) = 0;
    /// The name of the object's class; a static text.
    virtual const char* className() = 0;
};

/// Asks `object` for the interface `T`. The result is borrowed; it is null when `object` is null or
/// has no such interface.
template <class T> T* zelQuery(IZelUnknown* object) {
    void* found = nullptr;
    if (object) object->qi(T::interfaceName, &found, 0);
    return static_cast<T*>(found);
}
