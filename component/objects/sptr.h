// SPDX-License-Identifier: Apache-2.0
// SPtr: an IPtr that finds the host's service named after its interface.
#pragma once

#include "component/objects/countservice.h"
#include "component/objects/iptr.h"

/// Null, without any error, when the host has no such service.
template <class T, class U = IZelUnknown> class SPtr : public IPtr<T, U> {
public:
    SPtr() {
        void* found = nullptr;
        zelFindService(T::interfaceName, &found);
        *static_cast<IPtr<T, U>*>(this) = static_cast<T*>(found);
    }
};
