// SPDX-License-Identifier: Apache-2.0
// The classes that a module offers by identifier.
#pragma once

#include <cstdint>

class IZelUnknown;
class ZelGuid;

class IZelClassFactory {
public:
    virtual ~IZelClassFactory() = default;

    /// 0 for an unknown identifier, `*out` is then left alone; 1 with a new object; 2 with the
    /// shared object of a singleton class. No reference is taken.
    virtual std::int32_t createInstance(const ZelGuid& id, IZelUnknown** out) = 0;
    virtual std::int32_t classCount() = 0;
    /// Starts the one enumeration of the module anew; false on an empty table.
    virtual bool firstClass(ZelGuid* out) = 0;
    /// False when the entries are used up, or before firstClass.
    virtual bool nextClass(ZelGuid* out) = 0;
    /// A static text, or null for an unknown identifier.
    virtual const char* className(const ZelGuid& id) = 0;
};
