// SPDX-License-Identifier: Apache-2.0
// The walk over one directory.
#include "zelbasictypes/files/zeldiriterator.h"

#include "zelbasictypes/files/pathoperations.h"

ZelDirEntry::ZelDirEntry(const KorString& directory, const KorString& name)
    : path_(directory, name) {
    KorString full;
    withDriveRoot(path_, full);
    valid_ = platform::stat(full.c_str(), &stat_) == 0;
}

bool ZelDirEntry::hasType(std::uint32_t type) const {
    return valid_ && (stat_.mode & platform::file_mode::type) == type;
}

bool ZelDirEntry::isDirectoryNamed(std::u16string_view name) const {
    if (!isDirectory()) return false;
    const std::u16string_view path = path_.view();
    return path.substr(path.rfind(u'\\') + 1) == name;
}

ZelDirIterator::ZelDirIterator(const KorString* walked, bool withoutDots)
    : directory(walked), skipDots(withoutDots) {}

ZelDirIterator::~ZelDirIterator() { close(); }

void ZelDirIterator::begin() {
    close();
    KorString root;
    withDriveRoot(*directory, root);
    search = platform::findFirst(root.c_str(), name);
    done = search == nullptr;
    if (done) return;
    // What every path begins with, brought to normal form once.
    full = ZelPath(*directory, KorString::borrow(u"x")).view();
    prefixLength = full.size() - 1;
    take();
    skipUnwanted();
}

void ZelDirIterator::next() {
    if (done) return;
    step();
    skipUnwanted();
}

void ZelDirIterator::step() {
    done = !platform::findNext(search, name);
    if (!done) take();
}

/// As the constructor of an entry, but for the texts made and the way walked anew. Without a
/// directory the search is over the root, and the state that of a name in the current directory.
void ZelDirIterator::take() {
    if (prefixLength == 0) {
        entry_ = ZelDirEntry(*directory, KorString(name.c_str()));
        return;
    }
    full.replace(prefixLength, std::u16string::npos, name);
    entry_.path_.assign(full.c_str(), static_cast<std::int32_t>(full.size()));
    entry_.stat_ = {};
    entry_.valid_ = platform::statFound(search, &entry_.stat_) == 0;
}

void ZelDirIterator::skipUnwanted() {
    while (skipDots && !done && (name == u"." || name == u"..")) step();
}

void ZelDirIterator::close() {
    if (search) platform::findClose(search);
    search = nullptr;
}

std::vector<ZelDirEntry> entriesOf(const KorString& directory) {
    std::vector<ZelDirEntry> result;
    ZelDirIterator entries(&directory, true);
    for (entries.begin(); !entries.isDone(); entries.next()) result.push_back(entries.entry());
    return result;
}

std::int32_t entryCount(const KorString& directory) {
    std::int32_t count = 0;
    ZelDirIterator entries(&directory, false);
    for (entries.begin(); !entries.isDone(); entries.next()) ++count;
    return count;
}

std::int64_t totalSize(const KorString& directory) {
    std::int64_t sum = 0;
    ZelDirIterator entries(&directory, false);
    for (entries.begin(); !entries.isDone(); entries.next()) {
        if (entries.entry().isRegular()) sum += entries.entry().size();
    }
    return sum;
}
