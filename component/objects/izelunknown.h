// SPDX-License-Identifier: Apache-2.0
// The root of all interfaces: a counted object that is asked for its interfaces by name.
#pragma once

#include "component/objects/zelshared.h"

struct ZelObjectWalk;

/// Every interface derives virtually from this class, so that an object with several interfaces
/// has one count. Each interface names itself in a static `interfaceName`. An interface is a table
/// of operations in a fixed order; entries that are called `reserved1` and so on keep the places of
/// operations that no module here calls, and do nothing.
class IZelUnknown : public ZelShared {
public:
    static constexpr const char* interfaceName = "IZelUnknown";

    /// With a name: stores in `*result` the object seen as that interface, or null when it has no
    /// such interface. Names compare exactly; no reference is taken. With a null name: `result` is
    /// a ZelObjectWalk, and the class reports its names to it. `reserved` is always 0.
    virtual void qi(const char* name, void** result, std::int32_t reserved = 0) = 0;
    /// The name of the object's class, a static text.
    virtual const char* className() = 0;
};

/// Asks `object` for the interface `T`; null when `object` is null or has none. Borrowed.
template <class T> T* zelQuery(IZelUnknown* object) {
    void* found = nullptr;
    if (object) object->qi(T::interfaceName, &found, 0);
    return static_cast<T*>(found);
}
