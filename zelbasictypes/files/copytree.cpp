// SPDX-License-Identifier: Apache-2.0
// Trees of directories, copied and moved.
#include "zelbasictypes/files/filedevice.h"
#include "zelbasictypes/files/fileoperations.h"
#include "zelbasictypes/files/pathoperations.h"
#include "zelbasictypes/files/zeldiriterator.h"

#include <algorithm>
#include <vector>

namespace {

/// The directories that a job stands in, and the one that it fills. An entry that is one of them, a
/// link perhaps, would be walked without end.
class Trail {
public:
    explicit Trail(const KorString& target) : directories{target} {}

    bool leadsBackTo(const KorString& path) const {
        return std::any_of(directories.begin(), directories.end(), [&](const KorString& known) {
            return platform::isSameFile(known.c_str(), path.c_str());
        });
    }

    /// Is in `directory` for as long as it lives.
    class Step {
    public:
        Step(Trail& whole, const KorString& directory) : trail(whole) {
            trail.directories.push_back(directory);
        }
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step() { trail.directories.pop_back(); }

    private:
        Trail& trail;
    };

private:
    std::vector<KorString> directories;
};

ZelPath targetOf(const ZelDirEntry& entry, const KorString& to) {
    KorString name;
    fileName(entry.path(), name, true);
    return ZelPath(to, name);
}

/// Runs `handle(entry, target)` on all entries; false when one gave that.
template <class Handle>
bool forEach(const KorString& from, const KorString& to, Trail& trail, const Handle& handle) {
    const Trail::Step inside(trail, from);
    bool all = true;
    for (const ZelDirEntry& entry : entriesOf(from)) {
        if (!handle(entry, targetOf(entry, to))) all = false;
    }
    return all;
}

bool copyBelow(const KorString& from, const KorString& to, Trail& trail);

bool copyEntry(const ZelDirEntry& entry, const KorString& target, Trail& trail) {
    if (entry.isRegular()) return copyFile(entry.path(), target);
    if (trail.leadsBackTo(entry.path())) return true;
    if (isFile(target)) unlinkPath(target);
    if (!isDirectory(target)) makeDirectoryOnce(target);
    return copyBelow(entry.path(), target, trail);
}

bool copyBelow(const KorString& from, const KorString& to, Trail& trail) {
    if (isFile(from)) return copyFile(from, to);
    if (!isDirectory(from)) return true;
    if (to.isEmpty()) return false;
    if (!isDirectory(to)) makeDirectoryOnce(to);
    return forEach(from, to, trail, [&](const ZelDirEntry& entry, const KorString& target) {
        return copyEntry(entry, target, trail);
    });
}

bool moveBelow(const KorString& from, const KorString& to, Trail& trail);

bool moveEntry(const ZelDirEntry& entry, const KorString& target, Trail& trail) {
    if (platform::isSameFile(entry.path().c_str(), target.c_str())) return true;
    if (isFile(target)) removeFile(target);
    if (entry.isRegular())
        return renamePath(entry.path(), target) || copyFile(entry.path(), target);
    if (!entry.isDirectory() || trail.leadsBackTo(entry.path())) return true;
    return moveBelow(entry.path(), target, trail);
}

bool moveBelow(const KorString& from, const KorString& to, Trail& trail) {
    if (renamePath(from, to)) return true;
    if (isFile(from)) return copyFile(from, to);
    if (!isDirectory(from) || platform::isSameFile(from.c_str(), to.c_str())) return true;
    if (to.isEmpty()) return false;
    const bool made = isDirectory(to) || makeDirectoryOnce(to);
    return forEach(from, to, trail,
                   [&](const ZelDirEntry& entry, const KorString& target) {
                       return moveEntry(entry, target, trail);
                   }) &&
           made;
}

} // namespace

bool copyTree(const KorString& from, const KorString& to) {
    Trail trail{ZelPath(to)};
    return copyBelow(ZelPath(from), ZelPath(to), trail);
}

bool copyTree(const char* from, const char* to) {
    return copyTree(zeldevice::widened(from), zeldevice::widened(to));
}

bool moveTree(const KorString& from, const KorString& to) {
    Trail trail{ZelPath(to)};
    return moveBelow(ZelPath(from), ZelPath(to), trail);
}

bool moveTree(const char* from, const char* to) {
    return moveTree(zeldevice::widened(from), zeldevice::widened(to));
}
