// SPDX-License-Identifier: Apache-2.0
// The manager of memory chunks: everything in main memory, nothing swapped out.
#pragma once

#include "component/objects/services/izelmmanager.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace host {

/// Safe on any thread. Freed chunks of the usual 8192 bytes are kept for reuse until `reclaim`.
/// Figures are in units of 24 kB, begun units counting as whole ones.
class ChunkManager : public IZelMManager {
public:
    static constexpr std::int32_t unitBytes = 24 * 1024;
    static constexpr std::int32_t usualChunkBytes = 8192;
    static constexpr std::int32_t noLimit = INT32_MAX;

    /// `limitUnits` bounds the chunks in use and kept together.
    explicit ChunkManager(std::int32_t limitUnits = noLimit) : limitUnits_(limitUnits) {}
    ChunkManager(const ChunkManager&) = delete;
    ChunkManager& operator=(const ChunkManager&) = delete;
    ~ChunkManager() override;

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "ChunkManager"; }

    /// Null when the limit or the machine leaves no room, or for a size below 1.
    void* allocateChunk(std::int32_t bytes, bool zeroFill) override;
    void freeChunk(void* chunk) override;
    bool reclaim() override;
    std::int32_t coreLimit() override { return limitUnits_; }
    std::int32_t swapLimit() override { return 0; }
    std::int32_t swapNow() override { return 0; }
    std::int32_t coreNow() override;

private:
    void* takeKept(std::int32_t bytes);
    void* allocateNew(std::int32_t bytes);
    bool hasRoom(std::int32_t bytes) const;
    bool dropKept();

    std::mutex mutex_;
    std::unordered_map<void*, std::int32_t> sizes_; ///< of the chunks in use
    std::vector<void*> kept_;                       ///< all of the usual size
    std::int64_t bytesNow_ = 0;
    const std::int32_t limitUnits_;
};

} // namespace host
