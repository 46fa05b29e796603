// SPDX-License-Identifier: Apache-2.0
// Counted objects: the roots ZelObject and ZelShared.
//
// Ownership, everywhere in the system: a new object has count 0 and is handed out that way; the
// first smart pointer makes it 1; the release that brings it back to 0 destroys it. Lookups and
// interface queries give borrowed pointers. An object crosses module boundaries, so the order of
// the virtual operations is a contract: append nothing between them.
#pragma once

#include <cstdint>

class ZelWeakRef;

class ZelObject {
public:
    virtual ~ZelObject() = default;
};

class ZelShared : public ZelObject {
public:
    ZelShared() = default;
    /// A copy is a new object: it starts with no references and no weak reference of its own.
    ZelShared(const ZelShared&) : ZelObject() {}
    ZelShared& operator=(const ZelShared&) { return *this; }
    ~ZelShared() override = default;

    /// Adds one reference. Safe between threads as far as the host's manager makes it so.
    virtual void addRef();
    /// Gives one reference back; the last one clears the target of the weak reference and then
    /// deletes the object.
    virtual void release();
    /// As release, without the deletion: for objects whose storage somebody else owns.
    virtual void releaseNoDelete();
    /// The number of references held; 0 for a new object.
    virtual std::int32_t refCount();
    /// The object's one weak reference, made at the first call and kept alive by the object. It
    /// survives the object for as long as somebody else holds a reference to it. Not safe against
    /// a release of this object on another thread.
    virtual ZelWeakRef* weakRef();

private:
    bool dropReference();

    std::int32_t count_ = 0;
    ZelWeakRef* weak_ = nullptr;
};
