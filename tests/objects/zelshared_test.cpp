// SPDX-License-Identifier: Apache-2.0
// Counting without a manager, and the life of weak references.
#include "component/objects/iptr.h"
#include "component/objects/zelweakref.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

/// Tells when it is destroyed.
class Probe : public ZelShared {
public:
    explicit Probe(int& destroyed) : destroyed_(&destroyed) {}
    Probe(const Probe&) = default;
    Probe& operator=(const Probe&) = default;
    ~Probe() override { ++*destroyed_; }

private:
    int* destroyed_;
};

class ZelSharedTest : public testing::Test {
protected:
    int destroyed = 0;
};

TEST_F(ZelSharedTest, StartsWithoutReferencesAndDiesWithTheLast) {
    auto* probe = new Probe(destroyed);
    EXPECT_EQ(probe->refCount(), 0);
    probe->addRef();
    probe->addRef();
    EXPECT_EQ(probe->refCount(), 2);
    probe->release();
    EXPECT_EQ(destroyed, 0);
    probe->release();
    EXPECT_EQ(destroyed, 1);
}

TEST_F(ZelSharedTest, LeavesStorageOfOthersAloneAndDoesNotDieTwice) {
    {
        Probe probe(destroyed);
        probe.addRef();
        probe.releaseNoDelete();
        EXPECT_EQ(probe.refCount(), -42);
        probe.release();
        EXPECT_EQ(probe.refCount(), -43);
        EXPECT_EQ(destroyed, 0);
    }
    EXPECT_EQ(destroyed, 1);
}

TEST_F(ZelSharedTest, HasOneWeakReferenceThatItCountsOnce) {
    auto* probe = new Probe(destroyed);
    probe->addRef();
    ZelWeakRef* weak = probe->weakRef();
    EXPECT_EQ(probe->weakRef(), weak);
    EXPECT_EQ(weak->refCount(), 1);
    EXPECT_EQ(weak->target(), probe);
    EXPECT_EQ(weak->weakRef(), weak);

    weak->addRef();
    probe->release();
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(weak->target(), nullptr);
    EXPECT_EQ(weak->refCount(), 1);
    weak->release();
}

TEST_F(ZelSharedTest, ClearsTheWeakTargetWhenItsStorageStays) {
    Probe probe(destroyed);
    probe.addRef();
    IPtr<ZelWeakRef, ZelShared> weak(probe.weakRef());
    probe.releaseNoDelete();
    EXPECT_EQ(weak.iface->target(), nullptr);
    EXPECT_EQ(destroyed, 0);
}

TEST_F(ZelSharedTest, CopyStartsWithoutReferencesOfTheOriginal) {
    Probe probe(destroyed);
    probe.addRef();
    Probe copy(probe);
    EXPECT_EQ(copy.refCount(), 0);
    copy = probe;
    EXPECT_EQ(copy.refCount(), 0);
    probe.releaseNoDelete();
}

} // namespace
