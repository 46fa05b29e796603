// SPDX-License-Identifier: Apache-2.0
// Races of the binary streams and of the data-model file.
//
// Numbers: 16 MB of doubles or of 32-bit integers, written to a new file and read back from it, as
// arrays of 1000 and one by one. The limit swaps blocks of 64 kB by hand and moves each with one
// fwrite or fread, unbuffered. Blocks: 12,800 of 5 kB, in groups of 128, written and read back
// while every other one is skipped. Their limits are the same bytes in pieces of 64 kB by hand; for
// reading there are two, with nothing swapped and with everything.
//
// Files are in the temporary directory and stay in the system's cache: no disk is measured. What is
// kept in the processor's cache is the block at hand, as in use.
#include "benchmarks/data/blockpeers.h"
#include "benchmarks/support/race.h"
#include "zelbasictypes/data/binio.h"
#include "zelbasictypes/data/zelfile.h"
#include "zelbasictypes/text/korstring.h"

#include <QDataStream>
#include <QFile>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <numeric>
#include <vector>

namespace {

constexpr std::size_t totalBytes = 16 << 20;
constexpr std::size_t handBytes = 0x10000;
constexpr std::size_t arrayLength = 1000;

std::string pathOf(const char* name) {
    return (std::filesystem::temp_directory_path() / (std::string("brix-race-") + name)).string();
}
KorString wide(const std::string& path) { return KorString::fromUtf8(path.c_str()); }

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

OpenFile openUnbuffered(const std::string& path, const char* mode) {
    OpenFile file(std::fopen(path.c_str(), mode));
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

template <class T> std::vector<T> numbers(std::size_t count) {
    std::vector<T> result(count);
    std::iota(result.begin(), result.end(), T{1});
    return result;
}

/// Both ways the loop is the same: whole blocks of swapped numbers.
template <class T> void writeByHand(const std::string& path, const std::vector<T>& source) {
    const OpenFile file = openUnbuffered(path, "wb");
    std::vector<std::uint8_t> block(handBytes);
    constexpr std::size_t fitting = handBytes / sizeof(T);
    for (std::size_t done = 0; done < totalBytes / sizeof(T); done += fitting) {
        const T* from = source.data() + done % source.size();
        for (std::size_t i = 0; i < fitting; ++i)
            bigendian::store(block.data() + i * sizeof(T), from[i]);
        std::fwrite(block.data(), 1, handBytes, file.get());
    }
}

template <class T> void readByHand(const std::string& path, std::vector<T>& dest) {
    const OpenFile file = openUnbuffered(path, "rb");
    std::vector<std::uint8_t> block(handBytes);
    while (std::fread(block.data(), 1, handBytes, file.get()) == handBytes) {
        for (std::size_t i = 0; i < handBytes / sizeof(T); ++i)
            dest[i] = bigendian::load<T>(block.data() + i * sizeof(T));
        benchmark::ClobberMemory();
    }
}

template <class T> void writeArrays(const std::string& path, const std::vector<T>& source) {
    BinOutputFile file(wide(path));
    for (std::size_t done = 0; done < totalBytes / sizeof(T); done += arrayLength)
        file.write(source.data(), std::min(arrayLength, totalBytes / sizeof(T) - done));
    file.close();
}

template <class T> void readArrays(const std::string& path, std::vector<T>& dest) {
    BinInputFile file(wide(path));
    while (file.read(dest.data(), arrayLength)) benchmark::ClobberMemory();
}

template <class T> void writeSingles(const std::string& path, const std::vector<T>& source) {
    BinOutputFile file(wide(path));
    for (std::size_t done = 0; done < totalBytes / sizeof(T);) {
        for (const T& value : source) file.write(&value, 1);
        done += source.size();
    }
    file.close();
}

template <class T> void readSingles(const std::string& path, std::vector<T>& dest) {
    BinInputFile file(wide(path));
    for (std::size_t done = 0; done < totalBytes / sizeof(T); done += dest.size()) {
        for (T& value : dest) file.read(&value, 1);
        benchmark::ClobberMemory();
    }
}

template <class T> void writeQt(const std::string& path, const std::vector<T>& source) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly)) return;
    QDataStream stream(&file);
    for (std::size_t done = 0; done < totalBytes / sizeof(T); done += source.size())
        for (const T& value : source) stream << value;
}

template <class T> void readQt(const std::string& path, std::vector<T>& dest) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) return;
    QDataStream stream(&file);
    while (!stream.atEnd()) {
        for (T& value : dest) stream >> value;
        benchmark::ClobberMemory();
    }
}

template <class T>
void addWriters(const std::string& job, void (*ours)(const std::string&, const std::vector<T>&)) {
    static const std::vector<T> source = numbers<T>(handBytes / sizeof(T));
    const auto peer = [&](const char* name,
                          void (*run)(const std::string&, const std::vector<T>&)) {
        race::add(job, name, [=](benchmark::State& state) {
            for (auto _ : state) run(pathOf("write"), source);
        });
    };
    peer("64 kB blocks swapped by hand", writeByHand<T>);
    peer("BinOutputFile", ours);
    peer("QDataStream on QFile", writeQt<T>);
}

template <class T>
void addReaders(const std::string& job, void (*ours)(const std::string&, std::vector<T>&)) {
    static std::vector<T> dest(handBytes / sizeof(T));
    writeByHand(pathOf("read"), numbers<T>(handBytes / sizeof(T)));
    const auto peer = [&](const char* name, void (*run)(const std::string&, std::vector<T>&)) {
        race::add(job, name, [=](benchmark::State& state) {
            for (auto _ : state) run(pathOf("read"), dest);
        });
    };
    peer("64 kB blocks swapped by hand", readByHand<T>);
    peer("BinInputFile", ours);
    peer("QDataStream on QFile", readQt<T>);
}

using blockpeers::blockCount;
using blockpeers::blockDoubles;
using blockpeers::groupBlocks;

constexpr std::size_t blockBytes = blockDoubles * sizeof(double);

void writeRaw(const std::string& path, const double* values) {
    const OpenFile file = openUnbuffered(path, "wb");
    std::vector<std::uint8_t> piece(handBytes);
    std::size_t filled = 0;
    for (std::size_t i = 0; i < blockCount; ++i) {
        if (handBytes - filled < blockBytes) {
            std::fwrite(piece.data(), 1, filled, file.get());
            filled = 0;
        }
        for (std::size_t j = 0; j < blockDoubles; ++j, filled += sizeof(double))
            bigendian::store(piece.data() + filled, values[j]);
    }
    std::fwrite(piece.data(), 1, filled, file.get());
}

void writeModel(const std::string& path, const double* values) {
    ZelFileWrite writer;
    if (!writer.create(wide(path))) return;
    for (std::size_t group = 0; group < blockCount / groupBlocks; ++group) {
        writer.beginBlock(1, 0);
        for (std::size_t i = 0; i < groupBlocks; ++i) {
            writer.beginBlock(2, 0);
            writer.stream()->write(values, blockDoubles);
            writer.endBlock();
        }
        writer.endBlock();
    }
    writer.close();
}

template <bool skips> double readModel(const std::string& path) {
    ZelFileRead reader;
    std::vector<double> block(blockDoubles);
    double sum = 0;
    if (!reader.open(wide(path))) return 0;
    while (!reader.atBlockEnd()) {
        reader.beginBlock();
        while (!reader.atBlockEnd()) {
            reader.beginBlock();
            reader.stream()->read(block.data(), blockDoubles);
            reader.endBlock();
            sum += block.back();
            if (skips) reader.skipBlock();
        }
        reader.endBlock();
    }
    return sum;
}

double readPieces(const std::string& path) {
    const OpenFile file = openUnbuffered(path, "rb");
    std::vector<std::uint8_t> piece(handBytes);
    double sum = 0;
    while (std::fread(piece.data(), 1, handBytes, file.get()) > 0) sum += piece[0];
    return sum;
}

double readSwapped(const std::string& path) {
    const OpenFile file = openUnbuffered(path, "rb");
    std::vector<std::uint8_t> piece(handBytes);
    std::vector<double> values(handBytes / sizeof(double));
    double sum = 0;
    while (std::fread(piece.data(), 1, handBytes, file.get()) > 0) {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = bigendian::load<double>(piece.data() + i * sizeof(double));
        sum += values.back();
    }
    return sum;
}

void addBlocks() {
    static const std::vector<double> values = numbers<double>(blockDoubles);
    const auto writing = [](const char* peer, void (*run)(const std::string&, const double*)) {
        race::add("write 12,800 nested blocks of 5 kB", peer, [=](benchmark::State& state) {
            for (auto _ : state) run(pathOf("blocks"), values.data());
        });
    };
    writing("raw writes, swapped by hand", writeRaw);
    writing("ZelFileWrite", writeModel);
    writing("HDF5", blockpeers::writeHdf5);
    writing("FlatBuffers", blockpeers::writeFlatBuffers);

    writeModel(pathOf("model"), values.data());
    blockpeers::writeHdf5(pathOf("hdf5"), values.data());
    blockpeers::writeFlatBuffers(pathOf("flatbuffers"), values.data());
    const auto reading = [](const char* peer, const char* file, double (*run)(const std::string&)) {
        race::add("read them back, skipping half", peer, [=](benchmark::State& state) {
            for (auto _ : state) benchmark::DoNotOptimize(run(pathOf(file)));
        });
    };
    reading("read through, nothing swapped", "model", readPieces);
    reading("read through, all swapped", "model", readSwapped);
    reading("ZelFileRead, skipping none", "model", readModel<false>);
    reading("ZelFileRead", "model", readModel<true>);
    reading("HDF5", "hdf5", blockpeers::readHdf5);
    reading("FlatBuffers", "flatbuffers", blockpeers::readFlatBuffers);
}

} // namespace

int main(int argc, char** argv) {
    addWriters<double>("write doubles, arrays of 1000", writeArrays<double>);
    addWriters<double>("write doubles one by one", writeSingles<double>);
    addWriters<std::int32_t>("write 32-bit integers one by one", writeSingles<std::int32_t>);
    addReaders<double>("read doubles, arrays of 1000", readArrays<double>);
    addReaders<double>("read doubles one by one", readSingles<double>);
    addReaders<std::int32_t>("read 32-bit integers one by one", readSingles<std::int32_t>);
    addBlocks();
    const int status = race::run(argc, argv);
    for (const char* name : {"write", "read", "blocks", "model", "hdf5", "flatbuffers"})
        std::filesystem::remove(pathOf(name));
    return status;
}
