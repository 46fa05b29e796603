// SPDX-License-Identifier: Apache-2.0
/// @file
/// A smart pointer that looks up a host service.
#pragma once

#include "component/objects/countservice.h"
#include "component/objects/iptr.h"

/// An IPtr whose constructor looks up the host service named after the interface `T`. It is null,
/// without any error, when the host has no such service. It holds one reference.
template <class T, class U = IZelUnknown> class SPtr : public IPtr<T, U> {
public:
    SPtr() {
        void* found = nullptr;
        zelFindService(T::interfaceName, &found);
        *static_cast<IPtr<T, U>*>(this) = static_cast<T*>(found);
    }
};
