// SPDX-License-Identifier: Apache-2.0
/// @file
/// A smart pointer to an interface.
#pragma once

#include "component/objects/izelunknown.h"

/// Holds an interface and one reference to its object. `iface` may be read directly and may be
/// null: test it before use. The release goes through `unknown`, the same object seen as its root.
/// One pointer object may be used by one thread at a time.
template <class T, class U = IZelUnknown> class IPtr {
public:
    IPtr() = default;
    /// Takes a reference of its own on the object; null is allowed.
    explicit IPtr(T* p) { *this = p; }
    /// Takes a reference of its own on the object.
    IPtr(const IPtr& other) { *this = other.iface; }
    virtual ~IPtr() { *this = nullptr; }

    /// As assigning the object.
    IPtr& operator=(const IPtr& other) { return *this = other.iface; }

    /// Takes a reference on the new object before the old one is given back, so that assigning is
    /// safe when the old object holds the new one.
    IPtr& operator=(T* p) {
        if (p == iface) return *this;
        if (p) p->addRef();
        U* old = unknown;
        iface = p;
        unknown = p;
        if (old) old->release();
        return *this;
    }

    /// The interface, which must not be null.
    T* operator->() const { return iface; }
    /// Whether there is an object.
    explicit operator bool() const { return iface != nullptr; }

    /// The object seen as `T`, or null.
    T* iface = nullptr;
    /// The same object seen as its root, or null.
    U* unknown = nullptr;
};
