// SPDX-License-Identifier: Apache-2.0
/// @file
/// What the host calls to bring a component up and to create its objects.
#pragma once

#include "component/objects/izelunknown.h"

class IZelComponentManager;
class ZelGuid;

/// A component of the host, made by the module's EntryPoint. The host holds the references to it.
class IZelComponent : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelComponent";

    /// Connects the module to the host. From here on its reference counts and lookups go through
    /// `manager`, which must outlive the module; no reference is taken. The host calls this once,
    /// before other threads use the module.
    virtual void initialize(IZelComponentManager* manager) = 0;
    /// Announces the end. Objects of the module may still be released afterwards.
    virtual void terminate() = 0;
    /// Stores an object without taking a reference. Returns 1 for a new object, 2 for the shared
    /// object of a singleton class, and 0 for an identifier that the component doesn't offer;
    /// `*out` is then left alone.
    virtual std::int32_t createInstance(const ZelGuid& id, IZelUnknown** out) = 0;
    /// Reserved; returns 0.
    virtual std::int32_t componentReserved() = 0;
};
