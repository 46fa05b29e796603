// SPDX-License-Identifier: Apache-2.0
// The object of the host that an import is for, and the models that it hands out.
#pragma once

#include "component/objects/izelunknown.h"

class IZelImportedModel : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelImportedModel";

    /// The entry for the list of models, or null when the model does not count. The host's own.
    virtual void* modelEntry() = 0;
};

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
    /// The model behind the value of IZelCADImporter::finishModel; borrowed, null for none.
    virtual IZelImportedModel* resolveModel(void* finished) = 0;
};
