// SPDX-License-Identifier: Apache-2.0
// Files of records from arbitrary bytes: all ways to read them must see the same. The first byte
// chooses in what pieces the reader's device hands the others out.
#include "tests/cadimport/readingloops.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void require(const loops::Trace& seen, const loops::Trace& expected, const char* way) {
    if (seen == expected) return;
    std::fprintf(stderr, "%s sees %d steps where value by value sees %d, or other contents\n", way,
                 static_cast<int>(seen.size()), static_cast<int>(expected.size()));
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const QByteArray file(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    const loops::Trace expected = loops::valueByValue(file);
    require(loops::throughStream(file), expected, "createMessage");
    require(loops::throughReader(file, data[0]), expected, "RecordReader");
    require(loops::throughKeptObjects(file), expected, "RecordReader with kept objects");
    return 0;
}
