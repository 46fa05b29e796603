// SPDX-License-Identifier: Apache-2.0
// Writing and reading index arrays.
#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/sets/indexarray.h"
#include "zelbasictypes/sets/wordkernels.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint32_t chunkLength = BitVectorSplitter::chunkElements;

} // namespace

bool IndexArray::write(BinOutput& out, std::int32_t limit) const {
    static constexpr std::array<std::uint32_t, chunkLength> zeros{};
    const std::uint32_t count =
        limit < 0 ? size() : std::min(size(), static_cast<std::uint32_t>(limit));
    out.write(&count, 1);
    for (std::uint32_t i = 0; i < count; i += chunkLength) {
        const std::uint32_t* chunk = chunkAt(BitVectorSplitter::chunkOf(i));
        out.write(chunk ? chunk : zeros.data(), std::min(count - i, chunkLength));
    }
    return out.good();
}

bool IndexArray::read(BinInput& in) {
    std::int32_t told = -1;
    if (!in.read(&told, 1) || told < 0) return false;
    const auto count = static_cast<std::uint32_t>(told);
    resize(0, false);
    bool isWhole = true;
    for (std::uint32_t i = 0; i < count && isWhole; i += chunkLength) {
        std::array<std::uint32_t, chunkLength> entries{};
        isWhole = in.read(entries.data(), std::min(count - i, chunkLength));
        resize(i + chunkLength, false);
        if (!zelsets::areZero(entries.data(), chunkLength))
            std::copy(entries.begin(), entries.end(),
                      chunkForWriting(BitVectorSplitter::chunkOf(i)));
    }
    return true;
}

/// Calls `transfer(entries, count)` for the part of the range in each chunk.
template <class Transfer>
bool IndexArray::overRange(std::int32_t first, std::int32_t last, const Progress& progress,
                           Transfer transfer) {
    if (first < 0 || first > last) return true;
    extendFor(static_cast<std::uint32_t>(last));
    const std::int32_t firstChunk = first >> 11, chunks = (last >> 11) - firstChunk + 1;
    const std::int32_t interval = std::max(chunks / 50, 1);
    for (std::int32_t done = 0; done < chunks;) {
        const std::int32_t base = (firstChunk + done) << 11;
        const std::int32_t from = std::max(first - base, 0);
        const std::int32_t to = std::min(last - base, static_cast<std::int32_t>(chunkLength) - 1);
        std::uint32_t* entries = chunkForWriting(static_cast<std::uint32_t>(firstChunk + done));
        if (!transfer(entries + from, static_cast<std::uint64_t>(to - from) + 1)) return false;
        ++done;
        const float share = static_cast<float>(done) / static_cast<float>(chunks);
        if (progress && done % interval == 0 && !progress(share)) return false;
    }
    return true;
}

bool IndexArray::writeRange(BinOutput& out, std::int32_t first, std::int32_t last,
                            const Progress& progress) {
    return overRange(first, last, progress, [&](const std::uint32_t* entries, std::uint64_t count) {
        out.write(entries, count);
        return true;
    });
}

bool IndexArray::readRange(BinInput& in, std::int32_t first, std::int32_t last,
                           const Progress& progress) {
    return overRange(first, last, progress, [&](std::uint32_t* entries, std::uint64_t count) {
        return in.read(entries, count);
    });
}
