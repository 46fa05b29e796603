// SPDX-License-Identifier: Apache-2.0
// Files of records from arbitrary bytes: all ways to read them must see the same. The first byte
// chooses in what pieces the reader's device hands the others out.
#include "fuzz/require.h"
#include "tests/cadimport/readingloops.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const QByteArray file(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    const loops::Trace expected = loops::valueByValue(file);
    require(loops::throughStream(file) == expected, "createMessage sees otherwise");
    require(loops::throughReader(file, data[0]) == expected, "RecordReader sees otherwise");
    require(loops::throughKeptObjects(file) == expected, "kept objects see otherwise");
    return 0;
}
