// SPDX-License-Identifier: Apache-2.0
// The worker's record file: what is taken for a record is written as bytes that give the same ones
// again.
#include "fuzz/input.h"
#include "fuzz/recordbytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto record = readBack({reinterpret_cast<const char*>(data), static_cast<int>(size)});
    if (!record) return 0;
    const QByteArray bytes = written(*record);
    const auto again = readBack(bytes);
    require(again && written(*again) == bytes, "comes back otherwise");
    return 0;
}
