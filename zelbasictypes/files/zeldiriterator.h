// SPDX-License-Identifier: Apache-2.0
/// @file
/// Iterates over the entries of one directory.
#pragma once

#include "platform/directory.h"
#include "platform/file.h"
#include "zelbasictypes/files/zelpath.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// One entry and its status. An entry whose status can't be read is still an entry, with `exists`
/// false.
class ZelDirEntry {
public:
    ZelDirEntry() = default;
    /// Reads the status of `name` in `directory`.
    ZelDirEntry(const KorString& directory, const KorString& name);

    /// The path: the directory, followed by the name.
    const ZelPath& path() const { return path_; }
    /// The status; all zero when it couldn't be read.
    const platform::FileStatus& stat() const { return stat_; }
    /// Whether the status could be read.
    bool exists() const { return valid_; }
    /// The kind of the entry; links are followed.
    /// @{
    bool isDirectory() const { return hasType(platform::file_mode::directory); }
    bool isRegular() const { return hasType(platform::file_mode::regular); }
    /// @}
    /// The size in bytes; 0 when the status couldn't be read.
    std::int64_t size() const { return valid_ ? stat_.size : 0; }
    /// Whether this is the directory's own entry, or that of its parent.
    /// @{
    bool isDot() const { return isDirectoryNamed(u"."); }
    bool isDotDot() const { return isDirectoryNamed(u".."); }
    /// @}

private:
    friend class ZelDirIterator;

    bool hasType(std::uint32_t type) const;
    bool isDirectoryNamed(std::u16string_view name) const;

    ZelPath path_;
    platform::FileStatus stat_;
    bool valid_ = false;
};

/// An iterator, for one thread at a time. Nothing is opened before `begin`, which may be called
/// again to restart; until then the iteration counts as done. Entries come in the system's order. A
/// directory that can't be read has no entries.
class ZelDirIterator {
public:
    /// `directory` stays the caller's and must outlive the iterator. `skipDots` leaves out the
    /// entries of the directory itself and of its parent.
    explicit ZelDirIterator(const KorString* directory, bool skipDots = true);
    ZelDirIterator(const ZelDirIterator&) = delete;
    ZelDirIterator& operator=(const ZelDirIterator&) = delete;
    ~ZelDirIterator();

    /// Moves to the first entry.
    void begin();
    /// Moves to the next entry.
    void next();
    /// True after the last entry.
    bool isDone() const { return done; }
    /// The current entry; meaningless when the iteration is done.
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

/// All entries except the two of full stops, read at once, so that the directory may change
/// meanwhile.
std::vector<ZelDirEntry> entriesOf(const KorString& directory);
/// The number of entries, including the two of full stops.
std::int32_t entryCount(const KorString& directory);
/// The sum of the sizes of the regular files, in bytes, without subdirectories.
std::int64_t totalSize(const KorString& directory);
