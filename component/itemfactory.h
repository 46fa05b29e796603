// SPDX-License-Identifier: Apache-2.0
// Item factories: one static object for each class that the module offers is all that a class
// needs in order to be in the class table.
//
// The object must stand in a source file that the linker cannot leave out: of the module itself or
// of an object library, not of an archive.
#pragma once

#include "component/objects/izelunknown.h"
#include "zelbasictypes/data/zelguid.h"

class ZelItemFactory {
public:
    /// Enters the class table. Both texts are static; `category`, a second name by which classes
    /// can be gathered, may be null. A second factory under one identifier replaces the first.
    ZelItemFactory(const char* className, const char* category, const ZelGuid& classId);
    ZelItemFactory(const ZelItemFactory&) = delete;
    ZelItemFactory& operator=(const ZelItemFactory&) = delete;
    virtual ~ZelItemFactory() = default;

    /// An object without a reference for the caller; `*kind` is 1 for a new one, 2 for a shared.
    virtual IZelUnknown* create(std::int32_t* kind) = 0;
    virtual const char* className() const { return className_; }
    virtual const char* category() const { return category_; }

private:
    const char* className_;
    const char* category_;

public:
    const ZelGuid classId;
};

/// Makes a new object each time.
template <class T> class ZelTClassItemFactory : public ZelItemFactory {
public:
    using ZelItemFactory::ZelItemFactory;

    IZelUnknown* create(std::int32_t* kind) override {
        *kind = 1;
        return new T;
    }
};

/// Makes one object, at the first call, and keeps the one reference that it takes on it for good.
/// Not safe on two threads at once.
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
