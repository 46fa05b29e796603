// SPDX-License-Identifier: Apache-2.0
// Data-model files put together by hand, sound and otherwise.
#pragma once

#include "tests/zelbasictypes/bytes.h"
#include "zelbasictypes/data/bigendian.h"
#include "zelbasictypes/data/zelguid.h"

#include <iterator>

inline Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

/// Puts a length behind the header word at `offset`.
inline void setLength(Bytes& file, std::uint64_t offset, bool wide, std::uint64_t length) {
    bigendian::store(file.data() + offset + 4, wide ? 8 : 4, length);
}

inline Bytes block(bool wide, std::uint32_t tag, std::uint32_t version, const Bytes& content) {
    Bytes result(wide ? 12 : 8);
    bigendian::store(result.data(), tag << 8 | version);
    setLength(result, 0, wide, result.size() + content.size());
    return std::move(result) + content;
}

inline Bytes modelFile(bool wide, const Bytes& content) {
    return block(wide, 0x4B4F52, wide ? 1 : 0, content);
}

inline Bytes guidBytes(const ZelGuid& id) {
    Bytes result(8);
    bigendian::store(result.data(), id.data1);
    bigendian::store(result.data() + 4, id.data2);
    bigendian::store(result.data() + 6, id.data3);
    result.insert(result.end(), std::begin(id.data4), std::end(id.data4));
    return result;
}

/// A wide file of blocks that hold nothing but the next.
inline Bytes nestedBlocks(std::uint64_t levels) {
    Bytes file((levels + 1) * 12);
    for (std::uint64_t i = 0; i <= levels; ++i) {
        bigendian::store(file.data() + i * 12, i == 0 ? 0x4B4F5201u : 0x00000500u);
        setLength(file, i * 12, true, file.size() - i * 12);
    }
    return file;
}
