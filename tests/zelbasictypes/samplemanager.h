// SPDX-License-Identifier: Apache-2.0
// A chunk manager that counts what it is asked for, and gives memory back on demand.
#pragma once

#include "component/objects/services/izelmmanager.h"
#include "tests/support/service.h"

#include <functional>
#include <set>

class SampleManager : public testsupport::Service<IZelMManager> {
public:
    /// Chunks that aren't to be zeroed come full of 0xEE.
    void* allocateChunk(std::int32_t bytes, bool zeroFill) override;
    void freeChunk(void* chunk) override;
    bool reclaim() override;
    std::int32_t coreLimit() override { return 40000; }
    std::int32_t swapLimit() override { return 3; }
    std::int32_t swapNow() override { return 2; }
    std::int32_t coreNow() override { return 100; }

    /// Back to the beginning, but for the chunks in use.
    void reset();

    std::set<void*> inUse;
    std::int32_t chunkBytes = 0; ///< of the last chunk
    int nullsFreed = 0;
    int refusals = 0;             ///< the next so many chunks are refused
    int asked = 0;                ///< to give memory back
    int left = 0;                 ///< how often it does
    std::function<void()> onLast; ///< called when it does so for the last time
};

/// The library keeps the manager that it found, so one serves all tests of a process.
SampleManager& sampleManager();
