// SPDX-License-Identifier: Apache-2.0
// The component manager: what it hands out, scope by scope, and how it counts.
#include "host/componentmanager.h"

#include "component/objects/queryinterface.h"
#include "component/objects/services/imacromgr.h"
#include "component/objects/sptr.h"
#include "host/services/macromanager.h"
#include "tests/host/hosttest.h"

#include <thread>
#include <vector>

namespace host {
namespace {

const ZelGuid classId{1, 2, 3, {4}};

/// Tells of its end.
class Mortal : public MacroManager {
public:
    explicit Mortal(int& alive) : alive_(alive) { ++alive_; }
    ~Mortal() override { --alive_; }

private:
    int& alive_;
};

class ComponentManagerTest : public HostTest {
protected:
    int alive = 0;
    ComponentManager& root = rootManager();
    ComponentManager::Maker maker = [this] { return new Mortal(alive); };
};

TEST_F(ComponentManagerTest, GivesTheSameServiceAtEachLookupAndHoldsIt) {
    root.offerService("IMacroMgr", new Mortal(alive));
    auto* const first = find<IMacroMgr>();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(find<IMacroMgr>(), first);
    EXPECT_EQ(first->refCount(), 1);
    root.clear();
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(find<IMacroMgr>(), nullptr);
}

TEST_F(ComponentManagerTest, MakesANewObjectWithoutReferenceAtEachLookupOfAMaker) {
    root.offerMaker("IMacroMgr", maker);
    const IPtr<IMacroMgr> first(find<IMacroMgr>());
    auto* const second = find<IMacroMgr>();
    EXPECT_NE(first.iface, second);
    EXPECT_EQ(second->refCount(), 0);
    { const IPtr<IMacroMgr> held(second); }
    EXPECT_EQ(alive, 1);
}

TEST_F(ComponentManagerTest, LeavesOutAloneAndLeaksNothingWhenTheInterfaceIsMissing) {
    root.offerMaker("IGuiBusyState", maker);
    root.offerClass(classId, "IGuiBusyState", maker);
    int mark = 0;
    void* out = &mark;
    EXPECT_NE(zelGetService("IGuiBusyState", &out), 1);
    EXPECT_NE(zelCreateInstance(classId, "IGuiBusyState", &out), 1);
    EXPECT_NE(zelCreateInstance(ZelGuid{}, "IMacroMgr", &out), 1);
    EXPECT_EQ(out, &mark);
    EXPECT_EQ(alive, 0);
}

TEST_F(ComponentManagerTest, WithdrawsServicesMakersAndClassesByInterface) {
    root.offerService("IMacroMgr", new Mortal(alive));
    root.offerClass(classId, "IMacroMgr", maker);
    EXPECT_TRUE(root.withdraw("IMacroMgr"));
    EXPECT_FALSE(root.withdraw("IMacroMgr"));
    EXPECT_EQ(find<IMacroMgr>(), nullptr);
    void* out = nullptr;
    EXPECT_NE(zelCreateInstance(classId, "IMacroMgr", &out), 1);
    EXPECT_EQ(alive, 0);
}

TEST_F(ComponentManagerTest, AsksTheScopeFirstAndTheRootSecond) {
    auto* const ofRoot = new MacroManager;
    auto* const ofScope = new MacroManager;
    root.offerService("IMacroMgr", ofRoot);
    ComponentManager& scope = root.scope("inner");
    zelSetScopeName("inner");
    EXPECT_EQ(find<IMacroMgr>(), ofRoot);
    scope.offerService("IMacroMgr", ofScope);
    EXPECT_EQ(find<IMacroMgr>(), ofScope);
    zelSetScopeName("elsewhere");
    EXPECT_EQ(find<IMacroMgr>(), ofRoot);
    zelSetScopeName("");

    void* out = nullptr;
    EXPECT_EQ(zelGetServiceIn("IMacroMgr", "inner", &out), 1);
    EXPECT_EQ(static_cast<IMacroMgr*>(out), ofScope);
    EXPECT_NE(zelGetServiceIn("IMacroMgr", "elsewhere", &out), 1);
}

TEST_F(ComponentManagerTest, CountsSafelyBetweenThreads) {
    constexpr int threads = 4;
    constexpr int turns = 20000;
    const IPtr<IMacroMgr> shared(new Mortal(alive));
    std::vector<std::thread> users;
    for (int i = 0; i < threads; ++i) {
        users.emplace_back([&shared] {
            for (int turn = 0; turn < turns; ++turn) const IPtr<IMacroMgr> held(shared);
        });
    }
    for (std::thread& user : users) user.join();
    EXPECT_EQ(shared->refCount(), 1);
    EXPECT_EQ(alive, 1);
}

} // namespace
} // namespace host
