// SPDX-License-Identifier: Apache-2.0
// What our files cost over the system's own calls: a walk over a large directory with the state of
// every entry, blocks of 200 MB through a stream, and the copy of such a file.
//
// Everything is in the system's cache before it is measured, files and blocks are used again, and
// what is written isn't waited for, so that no disk and no fresh memory is measured. The files lie
// in a directory of the program's own below that for temporary files, and go with it: set TMPDIR to
// one in memory where the disk is slow to take what was written.
#include "benchmarks/support/race.h"
#include "tests/platform/posix/systempeers.h"
#include "zelbasictypes/files/fileoperations.h"
#include "zelbasictypes/files/zeldiriterator.h"
#include "zelbasictypes/files/zelfstream.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int entryTotal = 100000;
constexpr std::size_t blockLength = 200000000;

class Scratch {
public:
    Scratch()
        : root(fs::temp_directory_path() /
               ("brix-race-" + std::to_string(std::random_device()()))) {
        fs::create_directory(root);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() { fs::remove_all(root); }

    /// Names as of a real directory of parts: of some length, and not all ASCII.
    std::string manyFiles() const {
        const fs::path directory = root / "many";
        fs::create_directory(directory);
        for (int i = 0; i < entryTotal; ++i) {
            const char* const middle = i % 10 == 0 ? "-geh\u00e4use-" : "-housing-";
            std::ofstream(directory / ("part" + std::to_string(i) + middle + "left.direct")) << i;
        }
        return directory.string();
    }
    std::string largeFile(const char* name, const std::vector<char>& block) const {
        const fs::path path = root / name;
        std::ofstream(path, std::ios::binary)
            .write(block.data(), static_cast<std::streamsize>(block.size()));
        return path.string();
    }

private:
    const fs::path root;
};

KorString wide(const std::string& path) {
    return KorString(platform::libraryPath(fs::path(path).u16string()).c_str());
}

std::int64_t walkOurs(const KorString& directory) {
    std::int64_t sum = 0;
    ZelDirIterator entries(&directory, true);
    for (entries.begin(); !entries.isDone(); entries.next()) {
        if (entries.entry().isRegular()) sum += entries.entry().size();
    }
    return sum;
}

std::int64_t walkStandard(const std::string& directory) {
    std::int64_t sum = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        const fs::file_status status = entry.status();
        if (fs::is_regular_file(status)) sum += static_cast<std::int64_t>(entry.file_size());
    }
    return sum;
}

template <class Job> void addLoop(const char* job, const char* peer, Job run) {
    race::add(job, peer, [run](benchmark::State& state) {
        for (auto _ : state) run();
    });
}

/// A walk that missed something has won nothing.
template <class Walk> void addWalk(const char* peer, std::int64_t expected, Walk walk) {
    race::add("walk of 100,000 files", peer, [=](benchmark::State& state) {
        for (auto _ : state) {
            if (walk() != expected) state.SkipWithError("another sum");
        }
    });
}

void raceWalks(const std::string& directory) {
    const std::int64_t expected = systempeers::walk(directory);
    addWalk("readdir and fstatat", expected, [=] { return systempeers::walk(directory); });
    addWalk("ZelDirIterator", expected, [path = wide(directory)] { return walkOurs(path); });
    addWalk("std::filesystem", expected, [=] { return walkStandard(directory); });
}

void raceBlocks(const std::string& path, std::vector<char>& block) {
    static const systempeers::File file(path);
    static ZelFstream stream(wide(path), zelmode::in | zelmode::out | zelmode::binary);
    const auto length = static_cast<std::streamsize>(block.size());
    addLoop("read of 200 MB", "read", [&block] { file.read(block.data(), block.size()); });
    addLoop("read of 200 MB", "xsgetn", [&block, length] {
        stream.seekg(0);
        if (stream.rdbuf()->sgetn(block.data(), length) != length) std::exit(1);
    });
    addLoop("write of 200 MB", "write", [&block] { file.write(block.data(), block.size()); });
    addLoop("write of 200 MB", "xsputn", [&block, length] {
        stream.seekp(0);
        if (stream.rdbuf()->sputn(block.data(), length) != length) std::exit(1);
    });
}

/// All write over the same file, so that each begins by cutting it.
void raceCopies(const std::string& from, const std::string& to) {
    const char* const job = "copy of 200 MB";
    addLoop(job, "copy_file_range", [=] { systempeers::copyInSystem(from, to); });
    addLoop(job, "copyFile", [a = wide(from), b = wide(to)] {
        if (!copyFile(a, b)) std::exit(1);
    });
    addLoop(job, "256 kB blocks", [=] { systempeers::copyInBlocks(from, to); });
    addLoop(job, "std::filesystem",
            [=] { fs::copy_file(from, to, fs::copy_options::overwrite_existing); });
}

} // namespace

int main(int argc, char** argv) {
    const Scratch scratch;
    std::vector<char> block(blockLength);
    std::mt19937_64 random(1);
    std::generate(block.begin(), block.end(), [&random] { return static_cast<char>(random()); });
    raceWalks(scratch.manyFiles());
    raceBlocks(scratch.largeFile("block", block), block);
    raceCopies(scratch.largeFile("from", block), scratch.largeFile("to", block));
    return race::run(argc, argv);
}
