// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host's component manager, as far as a module calls it.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class ZelGuid;

/// Implemented by the host. A scope of the host has a manager of its own with the same interface.
/// On failure `out` is left alone; on success what it receives is borrowed, since no reference is
/// taken.
class IZelComponentManager : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelComponentManager";

    /// Makes an object of the class `id` and stores it seen as the named interface. 1 means
    /// success.
    virtual std::int32_t createInstance(const ZelGuid& id, const KorCString& interfaceName,
                                        void** out) = 0;
    /// Stores a service, seen as the interface of that name. 1 means success.
    virtual std::int32_t getService(const KorCString& name, void** out) = 0;
    /// A small number of the host's choice. The library doesn't ask for it.
    virtual std::int32_t status() = 0;
    /// The two operations behind every reference count. They are safe on any thread.
    virtual void incrementCount(std::int32_t* count) = 0;
    /// True when the count reached zero.
    virtual bool decrementCount(std::int32_t* count) = 0;
    /// The manager of a scope, borrowed; null when there is no such scope. `reserved` is always 0.
    virtual IZelComponentManager* findManager(const KorCString& scope, std::int32_t reserved) = 0;
};
