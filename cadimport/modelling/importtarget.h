// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host's object that an import is for, and the models that it hands out. Both are used by the
/// thread of the import.
#pragma once

#include "component/objects/izelunknown.h"

/// A finished model.
class IZelImportedModel : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelImportedModel";

    /// The entry for the list of models, owned by the host; null when the model doesn't count.
    virtual void* modelEntry() = 0;
};

/// The target of an import.
class IZelImportTarget : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelImportTarget";

    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}
    virtual void reserved7() {}
    /// The model for a result of IZelCADImporter::finishModel(). Borrowed; null for none.
    virtual IZelImportedModel* resolveModel(void* finished) = 0;
};
