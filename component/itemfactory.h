// SPDX-License-Identifier: Apache-2.0
/// @file
/// Item factories. One static object per class is all that it takes to put the class into the
/// module's class table.
///
/// The object must be defined in a source file that the linker can't leave out: one of the module
/// itself or of an object library, not of an archive.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/data/zelguid.h"

/// Makes the objects of one class. Factories are made at static initialisation, live as long as the
/// module, and don't change afterwards.
class ZelItemFactory {
public:
    /// Enters the class table. Both texts must be static. `category` is a second name by which
    /// classes can be collected; it may be null. A second factory for the same identifier replaces
    /// the first.
    ZelItemFactory(const char* className, const char* category, const ZelGuid& classId);
    ZelItemFactory(const ZelItemFactory&) = delete;
    ZelItemFactory& operator=(const ZelItemFactory&) = delete;
    virtual ~ZelItemFactory() = default;

    /// An object without a reference for the caller; `*kind` is set to 1 for a new object and to 2
    /// for a shared one.
    virtual IZelUnknown* create(std::int32_t* kind) = 0;
    /// The texts given to the constructor.
    /// @{
    virtual const char* className() const { return className_; }
    virtual const char* category() const { return category_; }
    /// @}

private:
    const char* className_;
    const char* category_;

public:
    const ZelGuid classId; ///< the class's identifier
};

/// The factory of an ordinary class: each call makes a new object.
template <class T> class ZelTClassItemFactory : public ZelItemFactory {
public:
    using ZelItemFactory::ZelItemFactory;

    IZelUnknown* create(std::int32_t* kind) override {
        *kind = 1;
        return new T;
    }
};

/// The factory of a class with one shared object. The first call makes it and takes a reference
/// that is never given back. Two threads must not make the first call at once.
template <class T> class ZelSingletonTClassItemFactory : public ZelItemFactory {
public:
    using ZelItemFactory::ZelItemFactory;

    IZelUnknown* create(std::int32_t* kind) override {
        if (!instance) {
            instance = new T;
            instance->addRef();
        }
        *kind = 2;
        return instance;
    }

private:
    T* instance = nullptr;
};
