// SPDX-License-Identifier: Apache-2.0
// The two smart pointers.
#include "component/objects/iptr.h"

#include "component/objects/services/izelprogress.h"
#include "component/objects/sptr.h"
#include "tests/support/fakemanager.h"
#include "tests/support/service.h"

#include <gtest/gtest.h>

namespace {

/// A counted object that may hold another; `alive` counts both.
class Link : public testsupport::Service<IZelProgress> {
public:
    explicit Link(int& alive) : alive_(alive) { ++alive_; }
    ~Link() override { --alive_; }
    void setProgress(double) override {}

    IPtr<Link> next;

private:
    int& alive_;
};

class IPtrTest : public testing::Test {
protected:
    int alive = 0;
};

TEST_F(IPtrTest, HoldsOneReferenceWhileItPoints) {
    auto* link = new Link(alive);
    {
        IPtr<Link> first(link);
        IPtr<IZelProgress> second;
        second = link;
        EXPECT_EQ(link->refCount(), 2);
        EXPECT_EQ(first.unknown, second.unknown);
        IPtr<Link> third(first);
        EXPECT_EQ(link->refCount(), 3);
        third = nullptr;
        EXPECT_FALSE(third);
        EXPECT_EQ(third.unknown, nullptr);
        EXPECT_EQ(link->refCount(), 2);
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(IPtrTest, AssigningWhatItHoldsChangesNothing) {
    auto* link = new Link(alive);
    IPtr<Link> pointer(link);
    pointer = link;
    pointer = static_cast<const IPtr<Link>&>(pointer);
    EXPECT_EQ(link->refCount(), 1);
    EXPECT_EQ(alive, 1);
}

TEST_F(IPtrTest, MayTakeOverWhatOnlyItsOldObjectHolds) {
    IPtr<Link> pointer(new Link(alive));
    pointer->next = new Link(alive);
    pointer = pointer->next;
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(pointer->refCount(), 1);
}

TEST_F(IPtrTest, ServicePointerFindsTheServiceOfItsName) {
    SPtr<IZelProgress> withoutManager;
    EXPECT_FALSE(withoutManager);

    testsupport::FakeManager manager;
    SPtr<IZelProgress> missing;
    EXPECT_FALSE(missing);
    EXPECT_EQ(missing.unknown, nullptr);

    auto* link = new Link(alive);
    manager.offer("IZelProgress", link);
    {
        SPtr<IZelProgress> service;
        EXPECT_EQ(service.iface, link);
        EXPECT_EQ(service.unknown, static_cast<IZelUnknown*>(link));
        EXPECT_EQ(link->refCount(), 2);
    }
    EXPECT_EQ(link->refCount(), 1);
}

} // namespace
