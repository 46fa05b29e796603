// SPDX-License-Identifier: Apache-2.0
/// @file
/// The classes that a module offers, by identifier.
#pragma once

#include <cstdint>

class IZelUnknown;
class ZelGuid;

/// A table of classes. Objects may be made on any thread, except that the first call for a
/// singleton class must not overlap with another. There is one enumeration for the whole module.
class IZelClassFactory {
public:
    virtual ~IZelClassFactory() = default;

    /// Stores an object without taking a reference. Returns 1 for a new object, 2 for the shared
    /// object of a singleton class, and 0 for an unknown identifier; `*out` is then left alone.
    virtual std::int32_t createInstance(const ZelGuid& id, IZelUnknown** out) = 0;
    /// The number of entries.
    virtual std::int32_t classCount() = 0;
    /// Restarts the enumeration and stores the first identifier; false when the table is empty.
    virtual bool firstClass(ZelGuid* out) = 0;
    /// Stores the next identifier; false after the last one, or before firstClass().
    virtual bool nextClass(ZelGuid* out) = 0;
    /// The name of a class, a static text; null for an unknown identifier.
    virtual const char* className(const ZelGuid& id) = 0;
};
