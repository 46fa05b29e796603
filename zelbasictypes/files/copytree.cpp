// SPDX-License-Identifier: Apache-2.0
// Trees of directories, copied and moved.
#include "zelbasictypes/files/filedevice.h"
#include "zelbasictypes/files/fileoperations.h"
#include "zelbasictypes/files/pathoperations.h"
#include "zelbasictypes/files/zeldiriterator.h"
#include "zelbasictypes/memory/zelnew.h"

#include <algorithm>

namespace {

/// The directories that a job stands in, and the one that it fills once that is there. An entry
/// that is one of them, a link perhaps, would be walked without end.
class Trail {
public:
    bool leadsBackTo(const KorString& path) const {
        platform::FileIdentity entry;
        return platform::identify(path.c_str(), &entry) &&
               ((hasTarget && entry == target) ||
                std::find(steps.begin(), steps.end(), entry) != steps.end());
    }
    /// The first directory that is told is the one that the whole job fills.
    void fills(const KorString& directory) {
        if (!hasTarget) hasTarget = platform::identify(directory.c_str(), &target);
    }

    /// Is in `directory` for as long as it lives.
    class Step {
    public:
        Step(Trail& whole, const KorString& directory) : trail(whole) {
            platform::FileIdentity own;
            platform::identify(directory.c_str(), &own);
            trail.steps.push_back(own);
        }
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step() { trail.steps.pop_back(); }

    private:
        Trail& trail;
    };

private:
    ZelVector<platform::FileIdentity> steps;
    platform::FileIdentity target;
    bool hasTarget = false;
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
    trail.fills(to);
    return forEach(from, to, trail, [&](const ZelDirEntry& entry, const KorString& target) {
        return copyEntry(entry, target, trail);
    });
}

bool moveBelow(const KorString& from, const KorString& to, Trail& trail);

/// A link to what would have to go to make room for it. Of two names of one file either may go.
bool isLinkTo(const KorString& path, const KorString& target) {
    return platform::isLink(path.c_str()) && platform::isSameFile(path.c_str(), target.c_str());
}

bool moveEntry(const ZelDirEntry& entry, const KorString& target, Trail& trail) {
    if (isLinkTo(entry.path(), target)) return true;
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
    trail.fills(to);
    return forEach(from, to, trail,
                   [&](const ZelDirEntry& entry, const KorString& target) {
                       return moveEntry(entry, target, trail);
                   }) &&
           made;
}

} // namespace

bool copyTree(const KorString& from, const KorString& to) {
    Trail trail;
    return copyBelow(ZelPath(from), ZelPath(to), trail);
}

bool copyTree(const char* from, const char* to) {
    return copyTree(zeldevice::widened(from), zeldevice::widened(to));
}

bool moveTree(const KorString& from, const KorString& to) {
    Trail trail;
    return moveBelow(ZelPath(from), ZelPath(to), trail);
}

bool moveTree(const char* from, const char* to) {
    return moveTree(zeldevice::widened(from), zeldevice::widened(to));
}
