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

QByteArray contents(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class ImportFaults : public BrixImportTest {
protected:
    ImportFaults() {
        ModelFile model(file("model"));
        for (const double unit : {25.4, 1000.0}) model.begin(unit), model.addSphere(), model.end();
        for (const char* name : {"part.step", "export"}) {
            QFile empty(file(name));
            EXPECT_TRUE(empty.open(QIODevice::WriteOnly));
        }
    }

    QString file(const char* name) const { return directory.filePath(name); }

    /// An import with something in the environment.
    ImportResult importWith(const QString& variable, const QString& value) {
        for (const char* name : {"trace", "memory.log"}) QFile::remove(file(name));
        QDir(temporary.path()).removeRecursively(); // a run that ended early left its own
        QDir().mkpath(temporary.path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : testsupport::temporaryVariables) {
            environment.insert(name, temporary.path());
        }
        environment.insert("LSAN_OPTIONS", "exitcode=0");
        environment.insert(variable, value);
        process.setProcessEnvironment(environment);
        QStringList words{file("part.step"), "--json", "--trace", file("trace")};
        words << "--module" << FAULTY_MODULE << "--server" << FAKE_SERVER;
        words << "--output-base" << file("base");
        words << "--set"
              << "Directories/Logs Directory=" + directory.path();
        words << "--set"
              << "Directories/Temp Directory=" + spills.path();
        if (withoutPool)
            words << "--without"
                  << "IBucketMemoryPool";
        const QString copies[][2] = {{"model", "base.direct"}, {"export", "base.igs"}};
        for (const auto& [from, to] : copies) {
            words << "--argument"
                  << "-FakeCopy";
            words << "--argument" << directory.filePath(from);
            words << "--argument" << directory.filePath(to);
        }
        return run(words);
    }

    /// The calls that a heap gets in a sound run.
    long callsOf(const std::string& heap) {
        QFile::remove(file("counts"));
        sound = importWith("FAULTY_HEAP_COUNT", file("counts"));
        soundTrace = contents(file("trace"));
        EXPECT_EQ(sound.json()["models"].size(), 2u) << sound.errors;
        EXPECT_TRUE(soundTrace.contains("modelEntry"));
        std::istringstream lines(contents(file("counts")).toStdString());
        std::string name;
        long calls = 0;
        while (lines >> name >> calls && name != heap) {
        }
        EXPECT_EQ(name, heap);
        return calls;
    }

    void expectSoundOrOver(const ImportResult& result) const {
        if (result.status == sound.status) {
            EXPECT_EQ(contents(file("trace")), soundTrace);
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
