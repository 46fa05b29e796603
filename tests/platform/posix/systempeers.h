// SPDX-License-Identifier: Apache-2.0
// What the system does by itself, as directly as a program can ask for it: the measure of our own
// files. All of them end the program when something fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace systempeers {

/// The sizes of all entries of the directory added up: a name and a state each.
std::int64_t walk(const std::string& directory);

/// A file that stays open.
class File {
public:
    explicit File(const std::string& path);
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File();

    /// From the start of the file, in one call as far as the system lets it.
    void read(char* block, std::size_t length) const;
    void write(const char* block, std::size_t length) const;

private:
    int fd;
};

/// Copies over a file that is there, without the bytes coming through the program.
void copyInSystem(const std::string& from, const std::string& to);
/// Copies in blocks of 256 kB.
void copyInBlocks(const std::string& from, const std::string& to);

} // namespace systempeers
