// SPDX-License-Identifier: Apache-2.0
/// @file
/// Reference-counted objects: the roots ZelObject and ZelShared.
///
/// Ownership follows the same rule everywhere. A new object has the count 0 and is handed out that
/// way; the first smart pointer raises it to 1; the release that brings it back to 0 destroys the
/// object. Lookups and interface queries return borrowed pointers.
///
/// Objects cross module boundaries, so the order of the virtual operations is a contract: nothing
/// may be inserted between them.
#pragma once

#include <cstdint>

class ZelWeakRef;

/// The root of everything that is destroyed through a base pointer.
class ZelObject {
public:
    virtual ~ZelObject() = default;
};

/// An object with a reference count and, on demand, one weak reference. Counts may change on any
/// thread once the host's component manager is known; see countservice.h.
class ZelShared : public ZelObject {
public:
    ZelShared() = default;
    /// A copy is a new object: it starts with no references and without a weak reference.
    /// Assignment leaves the count and the weak reference of both objects alone.
    /// @{
    ZelShared(const ZelShared&) : ZelObject() {}
    ZelShared& operator=(const ZelShared&) { return *this; }
    /// @}
    ~ZelShared() override = default;

    /// Adds one reference.
    virtual void addRef();
    /// Gives one reference back. The last one clears the target of the weak reference and then
    /// deletes the object.
    virtual void release();
    /// As release(), without the deletion: for objects whose storage somebody else owns.
    virtual void releaseNoDelete();
    /// The number of references held; 0 for a new object.
    virtual std::int32_t refCount();
    /// The object's only weak reference, created by the first call and kept alive by the object. It
    /// outlives the object while somebody else holds a reference to it. Not safe against a release
    /// of this object on another thread.
    virtual ZelWeakRef* weakRef();

private:
    bool dropReference();

    std::int32_t count_ = 0;
    ZelWeakRef* weak_ = nullptr;
};
