// SPDX-License-Identifier: Apache-2.0
// The memory log, the message with and without each service, and the end of the process.
#include "zelbasictypes/diagnostics/outofmemory.h"

#include "component/objects/services/igfxrenderer.h"
#include "component/objects/services/izelerrorservice.h"
#include "tests/support/endings.h"
#include "tests/support/refusingnew.h"
#include "tests/support/service.h"
#include "tests/zelbasictypes/fakehost.h"
#include "tests/zelbasictypes/samplemanager.h"
#include "tests/zelbasictypes/samplestore.h"
#include "tests/zelbasictypes/temporarydirectory.h"
#include "zelbasictypes/data/zelfile.h"
#include "zelbasictypes/diagnostics/memorylog.h"
#include "zelbasictypes/diagnostics/systemmemory.h"
#include "zelbasictypes/memory/bucketmemorypool.h"
#include "zelbasictypes/memory/heapseam.h"
#include "zelbasictypes/memory/korrealloc.h"
#include "zelbasictypes/sets/bitvector.h"
#include "zelbasictypes/text/korcstring.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

namespace {

constexpr const char* message = "While running this function, you have run out of memory.\n"
                                "The application will close. After restarting, please read\n"
                                "the online help about \"Memory Optimization\".";
constexpr auto outOfMemory = testsupport::endedWithMinusOne;

constexpr const char* systemLines = "system free:         4000k\n"
                                    "system total:       16000k\n"
                                    "swap free:           9000k\n"
                                    "swap total:       12345678k\n\n";

bool smallMachine(platform::MemoryStatus& status) {
    constexpr std::uint64_t k = 1024;
    status = {4000 * k, 16000 * k, 9000 * k, 12345678 * k, 1 << 30, std::uint64_t{1} << 40, 0};
    return true;
}

/// All that is told goes to standard error, where a dying process can still be heard.
class ErrorService : public testsupport::Service<IZelErrorService> {
public:
    void report(const KorString& text, const std::int32_t* kind,
                const KorCString& source) override {
        std::fprintf(stderr, "<%s %d %s>", source.c_str(), *kind, text.toNarrow());
    }
};

class Renderer : public testsupport::Service<IGfxRenderer> {
public:
    void suspend() override { std::fputs("[suspend]", stderr); }
    void resume() override { std::fputs("[resume]", stderr); }
};

void refuseAll(void (*exitProcess)(int) = nullptr) {
    zelSetHeap({[](std::size_t) -> void* { return nullptr; },
                [](void*, std::size_t) -> void* { return nullptr; }, nullptr, exitProcess});
}

class OutOfMemory : public testing::Test {
protected:
    OutOfMemory() {
        // The renderer and the chunk manager are kept once they are found: each case has a process
        // of its own, or dies in one.
        GTEST_FLAG_SET(death_test_style, "fast");
        zelSetSystemMemory({smallMachine, nullptr});
        store->texts["Directories/Logs Directory"] = directory.path();
        store->texts["Directories/Temp Directory"] = directory.path();
        fakehost::offer<IDataStore>(store.iface);
    }
    ~OutOfMemory() override {
        zelSetSystemMemory({});
        fakehost::withdrawAll();
    }

    void useErrorService() { store->numbers["Memory/UseErrorService"] = 1; }
    /// What the user is told, by a process of its own.
    template <class Test> void tells(const std::string& pattern, Test test) {
        EXPECT_EXIT(
            {
                test();
                std::exit(7);
            },
            testing::ExitedWithCode(7), pattern);
    }
    /// It is a text: how its lines end is the system's affair.
    std::string log() const {
        std::string text = directory.read("memory.log");
        std::erase(text, '\r');
        return text;
    }

    TemporaryDirectory directory;
    const IPtr<SampleStore> store{new SampleStore};
    const IPtr<ErrorService> errors{new ErrorService};
    const IPtr<Renderer> renderer{new Renderer};
};

} // namespace

TEST_F(OutOfMemory, LogStandsInColumns) {
    EXPECT_FALSE(directory.has("memory.log"));
    zelWriteMemoryLog(1048576);
    EXPECT_EQ(log(), std::string("attempted:        1048576b\n\n") + systemLines +
                         "zelmm not available\n\n");
}

TEST_F(OutOfMemory, LogHoldsTheLastFailureOnlyAndAManagersFiguresInKilobytes) {
    zelWriteMemoryLog(5);
    EXPECT_EXIT(
        {
            fakehost::offer<IZelMManager>(&sampleManager());
            zelWriteMemoryLog(0);
            std::exit(7);
        },
        testing::ExitedWithCode(7), "");
    EXPECT_EQ(log(), std::string(systemLines) + "zelmm core now:      2400k\n"
                                                "zelmm core limit:  960000k\n"
                                                "zelmm swap now:        48k\n"
                                                "zelmm swap limit:      72k\n\n");
}

TEST_F(OutOfMemory, LogNeedsAStoreAndAFileThatOpens) {
    fakehost::withdrawAll();
    zelWriteMemoryLog(1);
    fakehost::offer<IDataStore>(store.iface);
    store->texts["Directories/Logs Directory"] = KorString::borrow(u"\\no\\such\\directory");
    zelWriteMemoryLog(1);
    EXPECT_TRUE(directory.isEmpty());
}

TEST_F(OutOfMemory, MessageIsABoxUnlessTheSettingNamesTheErrorService) {
    fakehost::offer<IZelErrorService>(errors.iface);
    const std::string box = std::string("^Out of Memory: ") + message + "\n$";
    const std::string report = std::string("^<realloc 1 ") + message + ">$";
    tells(box, [] { EXPECT_FALSE(zelOutOfMemory(-4)); });
    tells(box, [] { EXPECT_FALSE(zelOutOfMemory(-1)); });
    tells("^$", [] { EXPECT_FALSE(zelOutOfMemory(0)); });
    tells("^$", [] { EXPECT_FALSE(zelOutOfMemory(-6)); });
    useErrorService();
    tells(report, [] { EXPECT_FALSE(zelOutOfMemory(-5)); });
    tells("^$", [] { EXPECT_FALSE(zelOutOfMemory(-6)); });
    tells("^$", [] {
        fakehost::offer("IZelErrorService", nullptr);
        EXPECT_FALSE(zelOutOfMemory(-4));
    });
    tells(box, [] {
        fakehost::withdrawAll(); // the store too
        EXPECT_FALSE(zelOutOfMemory(-4));
    });
}

TEST_F(OutOfMemory, RendererRestsWhileTheMessageIsUp) {
    tells("^\\[suspend\\]Out of Memory: .*\n.*\n.*\n\\[resume\\]$", [this] {
        fakehost::offer<IGfxRenderer>(renderer.iface);
        zelOutOfMemory(-3);
    });
    useErrorService();
    tells("^$", [this] {
        fakehost::offer<IGfxRenderer>(renderer.iface);
        zelOutOfMemory(-4); // without error service
    });
    tells("^\\[suspend\\]<realloc.*\n.*\n.*>\\[resume\\]\\[suspend\\]", [this] {
        fakehost::offer<IGfxRenderer>(renderer.iface);
        fakehost::offer<IZelErrorService>(errors.iface);
        zelOutOfMemory(-2);
        fakehost::offer("IGfxRenderer", nullptr); // it was looked up once
        zelOutOfMemory(-2);
    });
}

TEST_F(OutOfMemory, EndsTheProcessBehindLogAndMessage) {
    EXPECT_EXIT(zelReportOutOfMemory(64), outOfMemory, "Out of Memory");
    EXPECT_EQ(log().substr(0, 27), "attempted:             64b\n");
    useErrorService();
    EXPECT_EXIT(zelReportOutOfMemory(65), outOfMemory, "^$");
    EXPECT_EQ(log().substr(0, 27), "attempted:             65b\n");
    EXPECT_EXIT(zelOutOfMemoryExit(-4), outOfMemory, "^$");
}

TEST_F(OutOfMemory, EndsTheProcessWhereOperatorNewRefusesToo) {
    void* block = nullptr;
    void* another = nullptr;
    unsigned got = 0;
    korMalloc(&block, 4, 10);
    const auto refused = [](auto allocate) {
        destroyBucketPool();
        // What the program does at its exit, with memory or without, is its own affair.
        refuseAll([](int status) { std::_Exit(status); });
        const testsupport::RefusingNew refusing;
        allocate();
    };
    EXPECT_EXIT(refused([&] { korMalloc(&another, 4, 1000); }), outOfMemory, "run out of memory");
    EXPECT_EXIT(refused([&] { korRealloc(&block, 4, 10, 1000); }), outOfMemory, "run out of mem");
    EXPECT_EXIT(refused([&] { bucketAlloc(1000, got); }), outOfMemory, "run out of memory");
    zelFreeBlock(block);
    const BitVector set(40000);
    KorString text("a text as long as no small string holds it");
    EXPECT_EXIT(refused([&] { BitVector(10); }), outOfMemory, "run out of memory");
    EXPECT_EXIT(refused([&] { BitVector copy(set); }), outOfMemory, "run out of memory");
    EXPECT_EXIT(refused([&] { ZelFileRead().open(text); }), outOfMemory, "run out of memory");
    EXPECT_EXIT(refused([&] { text.toDouble(); }), outOfMemory, "run out of memory");
    EXPECT_EXIT(refused([&] { text.replaceAll(u"a", u"b"); }), outOfMemory, "run out of memory");
}

TEST_F(OutOfMemory, EndsTheProcessWhereTheHostNeedsMemoryToFindTheManager) {
    EXPECT_EXIT(
        {
            fakehost::whenAsked([] {
                KorCString text("a string of the host");
                text.append("and more");
            });
            refuseAll();
            void* block = nullptr;
            korMalloc(&block, 4, 1000);
        },
        outOfMemory, "run out of memory");
}

TEST_F(OutOfMemory, TheEndGoesThroughTheSeam) {
    struct Ended {
        int status;
    };
    zelSetHeap({nullptr, nullptr, nullptr, [](int status) { throw Ended{status}; }});
    for (int times = 0; times < 2; ++times) {
        try {
            zelReportOutOfMemory(8);
        } catch (const Ended& end) {
            EXPECT_EQ(end.status, -1);
        }
        EXPECT_TRUE(directory.has("memory.log"));
        std::filesystem::remove(directory.root / "memory.log");
    }
    zelSetHeap({});
}
