// SPDX-License-Identifier: Apache-2.0
// Blocks of doubles in HDF5 and FlatBuffers.
#include "benchmarks/data/blockpeers.h"

#include <flatbuffers/flatbuffers.h>
#include <hdf5.h>

#include <cstdio>
#include <memory>
#include <numeric>
#include <vector>

namespace blockpeers {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

constexpr flatbuffers::voffset_t firstField = 4;

} // namespace

void writeHdf5(const std::string& path, const double* block) {
    const hid_t file = H5Fcreate(path.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT);
    const hsize_t extent = blockDoubles;
    const hid_t space = H5Screate_simple(1, &extent, nullptr);
    for (std::size_t group = 0; group < blockCount / groupBlocks; ++group) {
        const hid_t parent =
            H5Gcreate2(file, std::to_string(group).c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
        for (std::size_t i = 0; i < groupBlocks; ++i) {
            const hid_t set = H5Dcreate2(parent, std::to_string(i).c_str(), H5T_IEEE_F64BE, space,
                                         H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
            H5Dwrite(set, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, block);
            H5Dclose(set);
        }
        H5Gclose(parent);
    }
    H5Sclose(space);
    H5Fclose(file);
}

double readHdf5(const std::string& path) {
    const hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
    std::vector<double> block(blockDoubles);
    double sum = 0;
    for (std::size_t group = 0; group < blockCount / groupBlocks; ++group) {
        const hid_t parent = H5Gopen2(file, std::to_string(group).c_str(), H5P_DEFAULT);
        for (std::size_t i = 0; i < groupBlocks; i += 2) {
            const hid_t set = H5Dopen2(parent, std::to_string(i).c_str(), H5P_DEFAULT);
            H5Dread(set, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, block.data());
            H5Dclose(set);
            sum += block.back();
        }
        H5Gclose(parent);
    }
    H5Fclose(file);
    return sum;
}

void writeFlatBuffers(const std::string& path, const double* block) {
    flatbuffers::FlatBufferBuilder builder(blockCount * blockDoubles * sizeof(double) + 0x100000);
    std::vector<flatbuffers::Offset<flatbuffers::Table>> tables;
    tables.reserve(blockCount);
    for (std::size_t i = 0; i < blockCount; ++i) {
        const auto values = builder.CreateVector(block, blockDoubles);
        const auto start = builder.StartTable();
        builder.AddOffset(firstField, values);
        tables.emplace_back(builder.EndTable(start));
    }
    const auto all = builder.CreateVector(tables);
    const auto start = builder.StartTable();
    builder.AddOffset(firstField, all);
    builder.Finish(flatbuffers::Offset<flatbuffers::Table>(builder.EndTable(start)));
    const OpenFile file(std::fopen(path.c_str(), "wb"));
    std::fwrite(builder.GetBufferPointer(), 1, builder.GetSize(), file.get());
}

double readFlatBuffers(const std::string& path) {
    using Values = flatbuffers::Vector<double>;
    using Tables = flatbuffers::Vector<flatbuffers::Offset<flatbuffers::Table>>;
    const OpenFile file(std::fopen(path.c_str(), "rb"));
    std::fseek(file.get(), 0, SEEK_END);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::ftell(file.get())));
    std::rewind(file.get());
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) return 0;
    const auto* root = flatbuffers::GetRoot<flatbuffers::Table>(bytes.data());
    const auto* tables = root->GetPointer<const Tables*>(firstField);
    std::vector<double> block(blockDoubles);
    double sum = 0;
    for (flatbuffers::uoffset_t i = 0; i < tables->size(); i += 2) {
        const auto* values = tables->Get(i)->GetPointer<const Values*>(firstField);
        std::copy(values->begin(), values->end(), block.begin());
        sum += block.back();
    }
    return sum;
}

} // namespace blockpeers
