// SPDX-License-Identifier: Apache-2.0
// What the host calls on a component to bring it up and to make its objects.
#pragma once

#include "component/objects/izelunknown.h"

class IZelComponentManager;
class ZelGuid;

class IZelComponent : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelComponent";

    /// From here on reference counts and lookups of the module go through `manager`, which must
    /// outlive the module: no reference is taken.
    virtual void initialize(IZelComponentManager* manager) = 0;
    /// Changes nothing: objects of the module may still be released after it.
    virtual void terminate() = 0;
    /// Stores an object without a reference in `*out` and returns 1 for a new one, 2 for the shared
    /// one of a singleton class. 0 for an identifier that the component does not offer; `*out` is
    /// then left alone.
    virtual std::int32_t createInstance(const ZelGuid& id, IZelUnknown** out) = 0;
    /// Returns 0.
    virtual std::int32_t componentReserved() = 0;
};
