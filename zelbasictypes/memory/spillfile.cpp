// SPDX-License-Identifier: Apache-2.0
// A block on disk for a moment.
#include "zelbasictypes/memory/spillfile.h"

#include "platform/file.h"
#include "zelbasictypes/files/filedevice.h"
#include "zelbasictypes/files/fileoperations.h"

#include <new>

// Where a file is wanted memory is short, and names take some.

bool ZelSpillFile::findName() {
    try {
        return makeTempName(name);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool ZelSpillFile::open() {
    namespace flag = platform::open_flag;
    try {
        file =
            zeldevice::open(name, flag::binary | flag::create | flag::readWrite | flag::temporary);
    } catch (const std::bad_alloc&) {
        file = -1;
    }
    return file != -1;
}

bool ZelSpillFile::write(const void* block, std::int64_t bytes) {
    return zeldevice::write(file, block, bytes) == bytes;
}

bool ZelSpillFile::readBack(void* block, std::int64_t bytes) {
    return zeldevice::seek(file, 0, 0) == 0 && zeldevice::read(file, block, bytes) == bytes;
}

void ZelSpillFile::close() {
    if (file == -1) return;
    platform::close(file);
    platform::unlink(name.c_str());
    file = -1;
}
