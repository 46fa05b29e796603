// SPDX-License-Identifier: Apache-2.0
// The formats that data-model files are raced against: as many blocks of doubles in one file.
#pragma once

#include <cstddef>
#include <string>

namespace blockpeers {

inline constexpr std::size_t blockCount = 12800;
inline constexpr std::size_t blockDoubles = 640; ///< 5 kB a block
inline constexpr std::size_t groupBlocks = 128;

/// One dataset a block, most significant byte first, in groups.
void writeHdf5(const std::string& path, const double* block);
/// Both read every other block and give the sum of what they saw, so that nothing is left out.
double readHdf5(const std::string& path);

/// One table a block, built in memory and written at once.
void writeFlatBuffers(const std::string& path, const double* block);
/// The file is read whole; skipped blocks are not looked at.
double readFlatBuffers(const std::string& path);

} // namespace blockpeers
