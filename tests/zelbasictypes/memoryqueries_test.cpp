// SPDX-License-Identifier: Apache-2.0
// What is known about memory: by the system, by the host's checker, and when nobody tells.
#include "zelbasictypes/diagnostics/memoryqueries.h"

#include "component/objects/services/imemchecker.h"
#include "component/objects/zelweakref.h"
#include "tests/support/service.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/samplestore.h"
#include "zelbasictypes/diagnostics/memlimitlistener.h"
#include "zelbasictypes/diagnostics/systemmemory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <utility>

namespace {

constexpr std::uint64_t unitsOf24 = 24 * 1024;

/// What the system tells in these tests.
struct System {
    bool tells = true;
    platform::MemoryStatus status{4000, 16000, 9000, 20000, 70000, 100000, 50};
    platform::WorkingSet set{700, 900};
} machine;

bool statusOfSystem(platform::MemoryStatus& status) {
    if (machine.tells) status = machine.status;
    return machine.tells;
}

bool setOfSystem(platform::WorkingSet& set) {
    if (machine.tells) set = machine.set;
    return machine.tells;
}

class Checker : public testsupport::Service<IMemChecker> {
public:
    bool isActive() override { return active; }
    std::int32_t status(std::uint64_t* free, std::uint64_t* total, std::uint64_t* swapFree,
                        std::uint64_t* swapTotal, std::uint32_t unit) override {
        *free = 10 * unit;
        *total = 20;
        *swapFree = 30;
        *swapTotal = 40;
        return answer;
    }
    std::uint64_t used(std::uint32_t unit) override { return 5 * unit; }

    bool active = false;
    std::int32_t answer = 0;
};

/// The library keeps the checker that it found, so one serves all tests, active in some.
Checker& checker() {
    static auto* const one = new IPtr<Checker>(new Checker);
    return *one->iface;
}

class MemoryQueries : public testing::Test {
protected:
    MemoryQueries() {
        machine = {};
        zelSetSystemMemory({statusOfSystem, setOfSystem});
        checker().active = false;
        checker().answer = 0;
    }
    ~MemoryQueries() override {
        zelSetSystemMemory({});
        fakehost::withdrawAll();
    }

    std::uint32_t ask(std::uint32_t unit) {
        return zelMemoryStatus(&free, &total, &swapFree, &swapTotal, unit);
    }
    void expectStatus(std::uint32_t unit, std::uint64_t f, std::uint64_t t, std::uint64_t sf,
                      std::uint64_t st, std::uint32_t answer = 0) {
        EXPECT_EQ(ask(unit), answer);
        EXPECT_EQ(free, f);
        EXPECT_EQ(total, t);
        EXPECT_EQ(swapFree, sf);
        EXPECT_EQ(swapTotal, st);
    }

    std::uint64_t free = 1;
    std::uint64_t total = 2;
    std::uint64_t swapFree = 3;
    std::uint64_t swapTotal = 4;
};

} // namespace

TEST_F(MemoryQueries, StatusTakesTheSmallestOfWhatBoundsSwapSpace) {
    expectStatus(1, 4000, 16000, 9000, 20000);
    machine.status.virtualTotal = 30000;
    machine.status.virtualFree = 12999;
    expectStatus(10, 400, 1600, 899, 1400);
    machine.status.pageFileFree = 50000;
    machine.status.virtualFree = 90000;
    expectStatus(0, 4000, 16000, 14000, 14000);
    machine.status.virtualTotal = 10000; // less than the machine has
    expectStatus(1, 4000, 16000, 0, 0);
}

TEST_F(MemoryQueries, AddsTheWantedShareOfSwapSpace) {
    EXPECT_EQ(zelMemoryFree(10), 400);
    EXPECT_EQ(zelMemoryAvailable(0.5, 10), 850);
    EXPECT_EQ(zelMemoryAvailable(0.0011, 1), 4009);
    EXPECT_EQ(zelVirtualAvailable(0, 1), 4000u);
    EXPECT_EQ(zelVirtualAvailable(0.5, 1000), 8u);
    EXPECT_EQ(zelVirtualFree(1000), 70u);
    machine.status.virtualFree = 100;
    EXPECT_EQ(zelVirtualAvailable(0, 1), 150u) << "the extended space counts";
}

TEST_F(MemoryQueries, ReadsTheWorkingSetOfTheProcess) {
    std::uint64_t current = 0;
    std::uint64_t peak = 0;
    EXPECT_TRUE(zelProcessMemoryPeak(&current, &peak, 100));
    EXPECT_EQ(current, 7u);
    EXPECT_EQ(peak, 9u);
    EXPECT_TRUE(zelProcessWorkingSet(&current, 1));
    EXPECT_EQ(current, 700u);
    EXPECT_EQ(zelProcessMemory(7), 100u);
    zelSetSystemMemory({statusOfSystem, [](platform::WorkingSet&) { return false; }});
    EXPECT_FALSE(zelProcessWorkingSet(&current, 1));
    EXPECT_EQ(current, 700u);
    EXPECT_EQ(zelProcessMemory(1), 30000u) << "address space in use";
}

TEST_F(MemoryQueries, FallsBackWhereTheSystemDoesNotTell) {
    machine.tells = false;
    expectStatus(1, 1, 2, 3, 4, 0xFFFFFFFF);
    EXPECT_EQ(zelMemoryAvailable(1, 1), -1);
    EXPECT_EQ(zelMemoryFree(1024), -1);
    EXPECT_EQ(zelVirtualFree(1024), 1800u);
    EXPECT_EQ(zelVirtualAvailable(0.5, 1024), 1800u);
    std::uint64_t current = 0;
    std::uint64_t peak = 0;
    EXPECT_FALSE(zelProcessMemoryPeak(&current, &peak, 1));
}

TEST_F(MemoryQueries, AskAnActiveCheckerInPlaceOfTheSystem) {
    fakehost::offer<IMemChecker>(&checker());
    EXPECT_EQ(zelMemoryFree(1), 4000) << "not active";
    checker().active = true;
    expectStatus(unitsOf24, 10 * unitsOf24, 20, 30, 40);
    EXPECT_EQ(zelMemoryAvailable(0.1, 1), 13);
    EXPECT_EQ(zelProcessMemory(3), 15u);
    checker().answer = -1;
    EXPECT_EQ(ask(1), 0xFFFFFFFFu);
    EXPECT_EQ(zelMemoryFree(1), -1);
    EXPECT_EQ(zelVirtualFree(1), 70000u) << "only the system knows";
}

TEST_F(MemoryQueries, TheSystemReallyTells) {
    zelSetSystemMemory({});
    EXPECT_EQ(ask(1024), 0u);
    EXPECT_GT(free, 0u);
    EXPECT_LE(free, total);
    EXPECT_GT(zelProcessMemory(1), 1000u);
    platform::MemoryStatus now;
    ASSERT_TRUE(platform::memoryStatus(now));
    EXPECT_EQ(defaultMemoryBudget,
              static_cast<std::uint64_t>(static_cast<double>(now.virtualTotal) * 0.9));
}

TEST_F(MemoryQueries, TheLimitIsWhatTheMachineHasUntilTheSettingsTellOtherwise) {
    EXPECT_EQ(MemLimitListener::make()->limit, 100000);
    machine.status.physicalTotal = 200000;
    EXPECT_EQ(MemLimitListener::make()->limit, 200000);
    machine.tells = false;
    EXPECT_EQ(MemLimitListener::make()->limit, -2147483648LL);
}

TEST_F(MemoryQueries, TheLimitFollowsItsSettingAlone) {
    const IPtr<SampleStore> store(new SampleStore);
    fakehost::offer<IDataStore>(store.iface);
    const IPtr<MemLimitListener> listener = MemLimitListener::make();
    EXPECT_EQ(listener->limit, 0) << "the setting isn't there";
    EXPECT_EQ(listener->refCount(), 2);
    constexpr double huge = std::numeric_limits<double>::infinity();
    const std::pair<double, std::int64_t> cases[] = {
        {4294967296.5, 4294967296},
        {-2.9, -2},
        {huge, std::numeric_limits<std::int64_t>::max()},
        {-huge, std::numeric_limits<std::int64_t>::min()},
        {std::numeric_limits<double>::quiet_NaN(), 0},
    };
    for (const auto& [value, expected] : cases) {
        store->change("Memory/MemLimit", value);
        EXPECT_EQ(listener->limit, expected);
    }
    store->change("Memory/Other", 5);
    EXPECT_EQ(listener->limit, 0);
    store->numbers["Memory/MemLimit"] = 77.7;
    EXPECT_EQ(MemLimitListener::make()->limit, 77);
}

TEST_F(MemoryQueries, TheLimitFollowsItsSettingInAStoreThatHoldsNobody) {
    class WeakStore : public SampleStore {
    public:
        void subscribe(const char*, IZelDataReceiver* receiver) override {
            const IPtr<IZelDataReceiver> passing(receiver);
            weak = receiver->weakRef();
        }
        IPtr<ZelWeakRef, ZelShared> weak;
    };
    const IPtr<WeakStore> store(new WeakStore);
    fakehost::offer<IDataStore>(store.iface);
    const IPtr<MemLimitListener> listener = MemLimitListener::make();
    EXPECT_EQ(listener->refCount(), 1);
    EXPECT_NE(store->weak->target(), nullptr);
}

TEST_F(MemoryQueries, OneListenerServesTheModuleFromItsFirstUseOn) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a new process has no listener yet
    const IPtr<SampleStore> store(new SampleStore);
    fakehost::offer<IDataStore>(store.iface);
    EXPECT_EXIT(
        {
            const bool lateComer = store->receivers.empty();
            zelMemoryFree(1);
            store->change("Memory/MemLimit", 123);
            const bool once = fakehost::lookUps("IDataStore") == 1;
            std::exit(lateComer && once && zelMemoryLimit() == 123 ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
}
