// SPDX-License-Identifier: Apache-2.0
// The host's component manager, as far as a module calls it.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class ZelGuid;

/// Implemented by the host; a scope of the host has a manager of its own with the same interface.
/// `out` is left alone on failure, and what it gets is borrowed: no reference is taken.
class IZelComponentManager : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelComponentManager";

    /// 1 on success: `*out` is then the new object seen as the interface named.
    virtual std::int32_t createInstance(const ZelGuid& id, const KorCString& interfaceName,
                                        void** out) = 0;
    /// 1 on success: `*out` is then the service, seen as the interface that bears its name.
    virtual std::int32_t getService(const KorCString& name, void** out) = 0;
    /// A small value of the host's choice; the library asks for it nowhere.
    virtual std::int32_t status() = 0;
    /// The two operations behind every reference count; safe on any thread.
    virtual void incrementCount(std::int32_t* count) = 0;
    /// True when the count reached zero.
    virtual bool decrementCount(std::int32_t* count) = 0;
    /// The manager of a scope, borrowed, or null. `reserved` is always 0.
    virtual IZelComponentManager* findManager(const KorCString& scope, std::int32_t reserved) = 0;
};
