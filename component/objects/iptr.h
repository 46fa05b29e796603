// SPDX-License-Identifier: Apache-2.0
// IPtr: holds an interface and one reference to its object.
#pragma once

#include "component/objects/izelunknown.h"

/// `iface` is read directly and may be null: test it before use. The release goes through
/// `unknown`, the same object seen as its root.
template <class T, class U = IZelUnknown> class IPtr {
public:
    IPtr() = default;
    explicit IPtr(T* p) { *this = p; }
    IPtr(const IPtr& other) { *this = other.iface; }
    virtual ~IPtr() { *this = nullptr; }

    IPtr& operator=(const IPtr& other) { return *this = other.iface; }

    /// Takes a reference on `p` before the old one is given back, so that an assignment whose old
    /// object holds the new one is safe.
    IPtr& operator=(T* p) {
        if (p == iface) return *this;
        if (p) p->addRef();
        U* old = unknown;
        iface = p;
        unknown = p;
        if (old) old->release();
        return *this;
    }

    T* operator->() const { return iface; }
    explicit operator bool() const { return iface != nullptr; }

    T* iface = nullptr;
    U* unknown = nullptr;
};
