// SPDX-License-Identifier: Apache-2.0
/// @file
/// How EntryPoint gets the module's component object.
#pragma once

class IZelComponent;

/// Makes the component objects of a module.
class IZelComponentFactory {
public:
    virtual ~IZelComponentFactory() = default;

    /// A new component without a reference. May throw; EntryPoint then fails.
    virtual IZelComponent* create() = 0;
};

/// The factory that EntryPoint uses. The module sets it at static initialisation and never deletes
/// it. Null when the module has no component to offer.
extern IZelComponentFactory* zelComponentFactory;

/// The component that EntryPoint made last. It is borrowed and may have been destroyed.
extern IZelComponent* zelModuleComponent;
