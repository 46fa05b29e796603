// SPDX-License-Identifier: Apache-2.0
// A whole import, server and all, on a heap that refuses one call, or all from one call on: it goes
// on as if nothing had happened, or ends on the way for a lack of memory, and leaves nothing
// behind. A few calls are picked; with the environment variable FAULTS=all every one has its turn.
#include "tests/apps/brixprocess.h"
#include "tests/apps/modelfile.h"

#include <algorithm>
#include <sstream>

namespace apps {
namespace {

constexpr long usualPicks = 8;
constexpr int outOfMemory = -1; ///< of which a POSIX system keeps eight bits

class ImportFaults : public BrixImportTest {
protected:
    ImportFaults() {
        ModelFile model(directory.path("model"));
        for (const double unit : {25.4, 1000.0}) model.begin(unit), model.addSphere(), model.end();
        for (const char* name : {"part.step", "export"}) directory.write(name);
    }

    /// An import with something in the environment.
    ImportResult importWith(const QString& variable, const QString& value) {
        for (const char* name : {"trace", "memory.log"}) QFile::remove(directory.path(name));
        QDir(temporary.path()).removeRecursively(); // a run that ended early left its own
        QDir().mkpath(temporary.path());
        QProcessEnvironment variables = environment();
        variables.insert("LSAN_OPTIONS", "exitcode=0");
        variables.insert(variable, value);
        process.setProcessEnvironment(variables);
        QStringList words = serving({"-FakeCopy", directory.path("model"), base + ".direct",
                                     "-FakeCopy", directory.path("export"), base + ".igs"});
        words << "--module" << FAULTY_MODULE << "--trace" << directory.path("trace");
        words << "--set" << ("Directories/Logs Directory=" + directory.path());
        words << "--set" << ("Directories/Temp Directory=" + spills.path());
        if (withoutPool) words << "--without" << QString("IBucketMemoryPool");
        return run(words);
    }

    /// The calls that a heap gets in a sound run.
    long callsOf(const std::string& heap) {
        QFile::remove(directory.path("counts"));
        sound = importWith("FAULTY_HEAP_COUNT", directory.path("counts"));
        soundTrace = directory.read("trace");
        EXPECT_EQ(sound.json()["models"].size(), 2u) << sound.errors;
        EXPECT_TRUE(soundTrace.contains("modelEntry"));
        std::istringstream lines(directory.read("counts").toStdString());
        std::string name;
        long calls = 0;
        while (lines >> name >> calls && name != heap) {
        }
        EXPECT_EQ(name, heap);
        return calls;
    }

    void expectSoundOrOver(const ImportResult& result) const {
        if (result.status == sound.status) {
            EXPECT_EQ(directory.read("trace"), soundTrace);
            EXPECT_EQ(result.json()["models"].size(), 2u) << result.output;
            EXPECT_EQ(leftBehind(), QStringList());
            EXPECT_FALSE(result.says("LeakSanitizer")) << result.errors;
        } else { // what the stack held when it ended may look like a leak
            EXPECT_EQ(result.status & 0xff, outOfMemory & 0xff) << result.output << result.errors;
            EXPECT_TRUE(result.says("run out of memory")) << result.errors;
        }
        EXPECT_TRUE(QDir(spills.path()).isEmpty());
    }

    void refuseOneByOne(const std::string& heap, const char* mode) {
        const long calls = callsOf(heap);
        ASSERT_GT(calls, 10);
        const bool all = qgetenv("FAULTS") == "all";
        const long step = all ? 1 : std::max(calls / usualPicks, 1L);
        for (long call = 1; call <= calls && !HasFailure(); call += step) {
            const std::string wish = heap + " " + mode + " " + std::to_string(call);
            SCOPED_TRACE(wish);
            expectSoundOrOver(importWith("FAULTY_HEAP", QString::fromStdString(wish)));
        }
    }

    ImportResult sound;
    QByteArray soundTrace;
    QTemporaryDir spills; ///< where blocks go on their way through a file
    bool withoutPool = false;
};

TEST_F(ImportFaults, OneCallOfTheHostIsRefused) { refuseOneByOne("host", "once"); }
TEST_F(ImportFaults, AllCallsOfTheHostAreRefusedFromOneOn) { refuseOneByOne("host", "from"); }

/// Where the host shares its pool, a module asks the host for all that it needs.
TEST_F(ImportFaults, OneCallOfTheModuleIsRefused) {
    withoutPool = true;
    refuseOneByOne("module", "once");
}
TEST_F(ImportFaults, AllCallsOfTheModuleAreRefusedFromOneOn) {
    withoutPool = true;
    refuseOneByOne("module", "from");
}

} // namespace
} // namespace apps
