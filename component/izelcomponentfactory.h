// SPDX-License-Identifier: Apache-2.0
// Makes the component objects of a module.
#pragma once

class IZelComponent;

class IZelComponentFactory {
public:
    virtual ~IZelComponentFactory() = default;

    /// A new component without a reference. May throw.
    virtual IZelComponent* create() = 0;
};

/// What EntryPoint asks. The module makes it at static initialisation and never deletes it; null
/// when the module has no component to offer.
extern IZelComponentFactory* zelComponentFactory;

/// The component that EntryPoint made last, borrowed: it may be gone.
extern IZelComponent* zelModuleComponent;
