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

bool ZelDirEntry::isDirectoryNamed(const char* name) const {
    if (!isDirectory()) return false;
    KorString own;
    fileName(path_, own, true);
    return own == name;
}

ZelDirIterator::ZelDirIterator(const KorString* walked, bool withoutDots)
    : directory(walked), skipDots(withoutDots) {}

ZelDirIterator::~ZelDirIterator() { close(); }

void ZelDirIterator::begin() {
    close();
    KorString full;
    withDriveRoot(*directory, full);
    std::u16string name;
    search = platform::findFirst(full.c_str(), name);
    done = search == nullptr;
    if (done) return;
    take(name);
    skipUnwanted();
}

void ZelDirIterator::next() {
    if (done) return;
    step();
    skipUnwanted();
}

void ZelDirIterator::step() {
    std::u16string name;
    done = !platform::findNext(search, name);
    if (!done) take(name);
}

void ZelDirIterator::take(const std::u16string& name) {
    entry_ = ZelDirEntry(*directory, KorString(name.c_str()));
}

void ZelDirIterator::skipUnwanted() {
    while (skipDots && !done && (entry_.isDot() || entry_.isDotDot())) step();
}

void ZelDirIterator::close() {
    if (search) platform::findClose(search);
    search = nullptr;
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
