// SPDX-License-Identifier: Apache-2.0
// Paths on the file system: what is there, moving, making and removing.
#include "zelbasictypes/files/pathoperations.h"

#include "component/objects/services/izeldirservice.h"
#include "component/objects/sptr.h"
#include "platform/file.h"
#include "zelbasictypes/files/filedevice.h"
#include "zelbasictypes/files/zeldiriterator.h"
#include "zelbasictypes/memory/zelnew.h"

#include <string_view>

namespace {

bool hasType(const platform::FileStatus& status, std::uint32_t type) {
    return (status.mode & platform::file_mode::type) == type;
}

bool isOfType(const KorString& path, std::uint32_t type) {
    KorString full;
    withDriveRoot(path, full);
    platform::FileStatus status;
    return platform::stat(full.c_str(), &status) == 0 && hasType(status, type);
}

/// A drive alone needs its root in either form.
bool isOfType(const char* path, std::uint32_t type) {
    if (!path) return false;
    const std::string_view given(path);
    if (given.size() == 2 && given[1] == ':') return isOfType(KorString(path), type);
    platform::FileStatus status;
    return platform::stat(path, &status) == 0 && hasType(status, type);
}

/// Makes one directory; true also where it exists.
template <class Path> bool makeOne(Path path) {
    return platform::makeDirectory(path) == 0 || platform::lastError() == platform::Error::exists;
}

/// Goes up to the first directory that is there or can be made, then down again.
bool makeWithParents(const KorString& path) {
    ZelVector<KorString> missing;
    KorString current(path);
    while (!makeOne(current.c_str())) {
        KorString parent;
        parentDirectory(current, parent);
        if (pathEqual(parent, current)) break;
        missing.push_back(current);
        current = parent;
    }
    for (; !missing.empty(); missing.pop_back()) {
        if (!makeOne(missing.back().c_str())) return false;
    }
    return true;
}

/// A link to a directory goes as the link that it is, where the system lets it, be it as a file or
/// as an empty directory: what it points at lies elsewhere.
void removeBelow(const KorString& directory) {
    ZelVector<KorString> files;
    ZelVector<KorString> directories;
    ZelDirIterator entries(&directory, true);
    for (entries.begin(); !entries.isDone(); entries.next()) {
        const ZelDirEntry& entry = entries.entry();
        if (entry.isRegular()) files.push_back(entry.path());
        if (entry.isDirectory()) directories.push_back(entry.path());
    }
    for (const KorString& file : files) removeFile(file);
    for (const KorString& below : directories) {
        if (removeFile(below) != 0 && !removeDirectory(below, false)) removeDirectory(below, true);
    }
}

} // namespace

void makeAbsolute(KorString& path) {
    if (isAbsolute(path)) return;
    KorString directory = ZelPath(KorString(platform::currentDirectory().c_str()));
    for (;;) {
        if (path.startsWith(u".\\", 2)) {
            path.remove(0, 2);
        } else if (path.startsWith(u"..\\", 3)) {
            path.remove(0, 3);
            parentDirectory(directory, directory);
        } else {
            break;
        }
    }
    join(directory, path);
    path = directory;
}

bool isFile(const KorString& path) { return isOfType(path, platform::file_mode::regular); }

bool isFile(const char* path) { return isOfType(path, platform::file_mode::regular); }

bool isDirectory(const KorString& path) { return isOfType(path, platform::file_mode::directory); }

bool isDirectory(const char* path) { return isOfType(path, platform::file_mode::directory); }

std::int32_t removeFile(const KorString& path) { return platform::remove(path.c_str()); }

std::int32_t removeFile(const char* path) { return platform::remove(path); }

bool renamePath(const KorString& from, const KorString& to) {
    return platform::rename(from.c_str(), to.c_str()) == 0;
}

bool renamePath(const char* from, const char* to) { return platform::rename(from, to) == 0; }

bool makeDirectory(const KorString& path, bool recursive) {
    return recursive ? makeWithParents(path) : makeOne(path.c_str());
}

bool makeDirectory(const char* path, bool recursive) {
    return recursive ? makeWithParents(zeldevice::widened(path)) : makeOne(path);
}

bool removeDirectory(const KorString& path, bool recursive) {
    if (path.isEmpty()) return false;
    if (recursive) removeBelow(path);
    return platform::removeDirectory(path.c_str()) == 0;
}

bool removeDirectory(const char* path, bool recursive) {
    if (recursive) return removeDirectory(zeldevice::widened(path), true);
    return platform::removeDirectory(path) == 0;
}

const KorString& zelDirectory(const char* name) {
    static const SPtr<IZelDirService> service;
    static const KorString none;
    return service ? service->directory(name) : none;
}
