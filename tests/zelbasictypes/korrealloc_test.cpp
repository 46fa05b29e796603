// SPDX-License-Identifier: Apache-2.0
// Allocation on a heap that refuses: the order of the tries, the temporary file, the end.
#include "zelbasictypes/memory/korrealloc.h"

#include "platform/file.h"
#include "tests/support/endings.h"
#include "tests/support/loopback.h"
#include "tests/zelbasictypes/assertioncounter.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/samplemanager.h"
#include "tests/zelbasictypes/samplestore.h"
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/memory/bucketmemorypool.h"
#include "zelbasictypes/memory/heapseam.h"
#include "zelbasictypes/text/korstring.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#if __has_include(<sys/resource.h>)
#include <sys/resource.h>
#define HAS_FILE_SIZE_LIMIT
#endif

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t elementSize = 4;
constexpr auto outOfMemory = testsupport::endedWithMinusOne;

/// What the heap refuses, and the sizes that were asked for, in elements.
struct Scarcity {
    std::size_t greatestResize = SIZE_MAX;
    std::size_t greatestNew = SIZE_MAX;
    std::vector<std::size_t> resizes;
} scarcity;

void* scarceAllocate(std::size_t bytes) {
    return bytes > scarcity.greatestNew ? nullptr : std::malloc(bytes);
}

void* scarceReallocate(void* block, std::size_t bytes) {
    scarcity.resizes.push_back(bytes / elementSize);
    return bytes > scarcity.greatestResize ? nullptr : std::realloc(block, bytes);
}

class KorRealloc : public testing::Test {
protected:
    KorRealloc() {
        scarcity = {};
        sampleManager().reset();
        sampleManager().onLast = [] { scarcity.greatestResize = scarcity.greatestNew = SIZE_MAX; };
        store->texts["Directories/Temp Directory"] = directory.path();
        store->texts["Directories/Logs Directory"] = directory.path();
        fakehost::offer<IZelMManager>(&sampleManager());
        fakehost::offer<IDataStore>(store.iface);
        zelSetHeap({scarceAllocate, scarceReallocate, nullptr, nullptr});
    }
    ~KorRealloc() override {
        zelSetHeap({});
        zelFreeBlock(block);
        fakehost::withdrawAll();
    }

    void fill(std::int32_t count) {
        korMalloc(&block, elementSize, count);
        for (std::int32_t i = 0; i < count; ++i) elements()[i] = i + 1;
        filled = count;
    }
    std::int32_t* elements() { return static_cast<std::int32_t*>(block); }
    std::int32_t grow(std::int32_t least, std::int32_t most = -1) {
        const std::int32_t count = korRealloc(&block, elementSize, filled, least, most);
        for (std::int32_t i = 0; i < count; ++i) {
            EXPECT_EQ(elements()[i], i < filled ? i + 1 : 0) << i;
        }
        return count;
    }
    /// Ends with the status of a lack of memory, having told and logged what was asked for.
    template <class Test> void expectEnd(Test test, long long bytes) {
        EXPECT_EXIT(test(), outOfMemory, "run out of memory");
        std::istringstream log(directory.read("memory.log"));
        std::string label;
        long long attempted = 0;
        log >> label >> attempted;
        EXPECT_EQ(label, "attempted:");
        EXPECT_EQ(attempted, bytes);
        fs::remove(directory.root / "memory.log");
        EXPECT_TRUE(directory.isEmpty()) << "the temporary file is left behind";
    }
    bool openFilesCanBeCut() const {
        const std::int32_t file =
            platform::open(directory.path("open").c_str(),
                           platform::open_flag::writeOnly | platform::open_flag::create,
                           platform::share::denyReadWrite);
        std::error_code failed;
        fs::resize_file(directory.root / "open", 100, failed);
        platform::close(file);
        fs::remove(directory.root / "open");
        return !failed;
    }
    static std::size_t elementsOf(std::size_t count) { return count * elementSize; }

    TemporaryDirectory directory;
    const IPtr<SampleStore> store{new SampleStore};
    void* block = nullptr;
    std::int32_t filled = 0;
};

using Sizes = std::vector<std::size_t>;

} // namespace

TEST_F(KorRealloc, ShrinksAndFreesAtZero) {
    fill(10);
    EXPECT_EQ(grow(4), 4);
    filled = 4;
    EXPECT_EQ(grow(0), 0);
    EXPECT_EQ(block, nullptr);
}

TEST_F(KorRealloc, LowersItsWishByHalvesAndAsksTheManagerFromTheThirdTimeOn) {
    constexpr std::int32_t greatest = std::numeric_limits<std::int32_t>::max();
    constexpr std::size_t all = SIZE_MAX / elementSize;
    const struct {
        const char* what;
        std::int32_t has, least, most;
        std::size_t heapGives;
        int managerGives;
        std::int32_t got;
        Sizes resizes;
        int asked;
    } cases[] = {
        {"it fits", 10, 10, 500, all, 0, 10, {}, 0},
        {"it is larger", 10, 5, 20, all, 0, 10, {}, 0},
        {"there is none", 0, 50, 100, all, 0, 50, {}, 0},
        {"it grows", 10, 20, 40, all, 0, 40, {40}, 0},
        {"it can't shrink", 10, 4, -1, 0, 0, 4, {4}, 0},
        {"no need to ask", 10, 50, 100, 70, 0, 62, {100, 75, 62}, 0},
        {"it gives twice", 10, 50, 100, 20, 2, 56, {100, 75, 62, 56, 56, 56}, 2},
        {"it refuses and is dropped", 10, 50, 100, 50, 0, 50, {100, 75, 62, 56, 56, 53, 51, 50}, 1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        if (each.has > 0) fill(each.has);
        scarcity = {elementsOf(each.heapGives), SIZE_MAX, {}};
        sampleManager().asked = 0;
        sampleManager().left = each.managerGives;
        EXPECT_EQ(each.has ? grow(each.least, each.most)
                           : korRealloc(&block, elementSize, 0, each.least, each.most),
                  each.got);
        EXPECT_EQ(scarcity.resizes, each.resizes);
        EXPECT_EQ(sampleManager().asked, each.asked);
        zelFreeBlock(std::exchange(block, nullptr));
    }
    fill(10);
    scarcity.greatestResize = elementsOf(50);
    EXPECT_EQ(grow(50, greatest), 50);
    EXPECT_LE(scarcity.resizes.front(), greatest / elementSize) << "what a signed size can name";
}

TEST_F(KorRealloc, WithoutSlackGoesThroughATemporaryFile) {
    const auto descriptors = loopback::openDescriptors();
    fill(1000);
    scarcity.greatestResize = 0;
    EXPECT_EQ(grow(5000), 5000);
    EXPECT_EQ(loopback::openDescriptors(), descriptors);
    EXPECT_EQ(scarcity.resizes, Sizes{5000});
    EXPECT_EQ(sampleManager().asked, 0);
    EXPECT_TRUE(directory.isEmpty());
}

TEST_F(KorRealloc, ReclaimsForTheBlockBehindTheFile) {
    fill(10);
    scarcity.greatestResize = 0;
    scarcity.greatestNew = 0;
    sampleManager().left = 3;
    EXPECT_EQ(grow(50), 50);
    EXPECT_EQ(sampleManager().asked, 3);
}

TEST_F(KorRealloc, GoesOnAfterAContradictoryWish) {
    const AssertionCounter assertions;
    fill(10);
    EXPECT_EQ(grow(30, 20), 20);
    EXPECT_EQ(assertions.all,
              (std::vector<std::string>{"maxNewSize >= minNewSize",
                                        "minNewSize > curSize && maxNewSize >= minNewSize"}));
}

TEST_F(KorRealloc, MallocRetriesForAsLongAsMemoryComesBack) {
    scarcity.greatestNew = 0;
    sampleManager().left = 2;
    EXPECT_EQ(korMalloc(&block, elementSize, 8), 8);
    EXPECT_NE(block, nullptr);
    EXPECT_EQ(sampleManager().asked, 2);
}

TEST_F(KorRealloc, EndsTheProcessWhenThereIsNoMemory) {
    fill(10);
    scarcity.greatestResize = scarcity.greatestNew = 0;
    void* other = nullptr;
    EXPECT_EXIT(korMalloc(&other, elementSize, 8), outOfMemory, "run out of memory");
    // Enough for names and for the log, too little for the block behind the file.
    scarcity.greatestNew = elementsOf(2000);
    expectEnd([this] { grow(5000); }, 20000);
    expectEnd([&] { korMalloc(&other, 4, std::numeric_limits<std::int32_t>::max()); },
              4LL * std::numeric_limits<std::int32_t>::max());
    scarcity.greatestNew = elementsOf(50000);
    unsigned got = 0;
    expectEnd([&] { bucketAlloc(300000, got); }, 300008);
}

TEST_F(KorRealloc, EndsTheProcessWhenTheTemporaryFileFails) {
    fill(5000);
    scarcity.greatestResize = 0;
    expectEnd(
        [this] {
            store->texts["Directories/Temp Directory"] =
                KorString::borrow(u"\\no\\such\\directory");
            grow(6000);
        },
        24000);
}

TEST_F(KorRealloc, EndsTheProcessWhenTheTemporaryFileIsCut) {
    if (!openFilesCanBeCut()) GTEST_SKIP() << "this system keeps open files from being cut";
    fill(5000);
    scarcity.greatestResize = 0;
    static fs::path spilled;
    spilled = directory.root;
    expectEnd(
        [this] {
            // Somebody cuts the file while its block is away from the heap.
            zelSetHeap({[](std::size_t bytes) {
                            if (bytes == elementsOf(8000)) {
                                for (const auto& entry : fs::directory_iterator(spilled))
                                    fs::resize_file(entry.path(), 100);
                            }
                            return std::malloc(bytes);
                        },
                        scarceReallocate, nullptr, nullptr});
            grow(8000);
        },
        32000);
}

TEST_F(KorRealloc, EndsTheProcessWhenTheTemporaryFileFindsNoRoom) {
#ifdef HAS_FILE_SIZE_LIMIT
    fill(5000);
    scarcity.greatestResize = 0;
    expectEnd(
        [this] {
            const rlimit tooShort{4096, 4096};
            ::setrlimit(RLIMIT_FSIZE, &tooShort);
            std::signal(SIGXFSZ, SIG_IGN);
            grow(7000);
        },
        28000);
#else
    GTEST_SKIP() << "this system has no limit on the size of files";
#endif
}

TEST(ZelGrowCount, DoublesAsFarAsTheTopBitAllows) {
    constexpr std::int32_t top = 0x40000000;
    const std::int32_t cases[][3] = {
        {0, 5, 8},
        {-7, 1, 1},
        {5, 5, 5},
        {9, 5, 9},
        {3, 7, 12},
        {1, top, top},
        {top, top + 1, top + 1},
        {3, top, top},
    };
    for (const auto& [current, needed, expected] : cases) {
        EXPECT_EQ(zelGrowCount(current, needed), expected) << current << " " << needed;
    }
}
