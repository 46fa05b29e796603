// SPDX-License-Identifier: Apache-2.0
// A walk over the entries of one directory.
#pragma once

#include "platform/directory.h"
#include "platform/file.h"
#include "zelbasictypes/files/zelpath.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// One entry and what the platform knows about it. An entry whose state can't be read is still an
/// entry, with `exists` false.
class ZelDirEntry {
public:
    ZelDirEntry() = default;
    ZelDirEntry(const KorString& directory, const KorString& name);

    const ZelPath& path() const { return path_; }
    /// All zero when the state couldn't be read.
    const platform::FileStatus& stat() const { return stat_; }
    bool exists() const { return valid_; }
    bool isDirectory() const { return hasType(platform::file_mode::directory); }
    bool isRegular() const { return hasType(platform::file_mode::regular); }
    /// In bytes; 0 when the state couldn't be read.
    std::int64_t size() const { return valid_ ? stat_.size : 0; }
    bool isDot() const { return isDirectoryNamed(u"."); }
    bool isDotDot() const { return isDirectoryNamed(u".."); }

private:
    friend class ZelDirIterator;

    bool hasType(std::uint32_t type) const;
    bool isDirectoryNamed(std::u16string_view name) const;

    ZelPath path_;
    platform::FileStatus stat_;
    bool valid_ = false;
};

/// Opens nothing until `begin`, which may be called again and then starts anew; before it the walk
/// counts as done. Entries come in the order of the system.
class ZelDirIterator {
public:
    /// `directory` stays the caller's and must outlive the walk. `skipDots` leaves "." and ".."
    /// out.
    explicit ZelDirIterator(const KorString* directory, bool skipDots = true);
    ZelDirIterator(const ZelDirIterator&) = delete;
    ZelDirIterator& operator=(const ZelDirIterator&) = delete;
    ~ZelDirIterator();

    void begin();
    void next();
    bool isDone() const { return done; }
    /// The current entry; meaningful while the walk isn't done.
    const ZelDirEntry& entry() const { return entry_; }

private:
    void close();
    void step();
    void take();
    void skipUnwanted();

    const KorString* directory;
    bool skipDots;
    platform::DirectorySearch* search = nullptr;
    std::u16string name;          ///< of the current entry
    std::u16string full;          ///< its path; the memory of both is used again
    std::size_t prefixLength = 0; ///< of the directory and its separator in `full`
    ZelDirEntry entry_;
    bool done = true;
};

/// All entries but the two dots, read in one go, so that the directory may change meanwhile.
std::vector<ZelDirEntry> entriesOf(const KorString& directory);
/// The number of entries, "." and ".." among them.
std::int32_t entryCount(const KorString& directory);
/// The sizes of the regular files added up, in bytes, without those of subdirectories.
std::int64_t totalSize(const KorString& directory);
