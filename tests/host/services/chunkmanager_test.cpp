// SPDX-License-Identifier: Apache-2.0
// Chunks, their limit and their figures.
#include "host/services/chunkmanager.h"

#include "tests/host/hosttest.h"

#include <algorithm>
#include <cstring>

namespace host {
namespace {

constexpr std::int32_t usual = ChunkManager::usualChunkBytes;
constexpr int chunksInAUnit = ChunkManager::unitBytes / usual;

class ChunkManagerTest : public HostTest {
protected:
    static IPtr<IZelMManager> make(std::int32_t limitUnits) {
        return IPtr<IZelMManager>(new ChunkManager(limitUnits));
    }
};

TEST_F(ChunkManagerTest, ZeroesOnRequestAlsoWhatIsUsedAgain) {
    const auto chunks = make(ChunkManager::noLimit);
    void* chunk = chunks->allocateChunk(usual, false);
    std::memset(chunk, 7, usual);
    chunks->freeChunk(chunk);
    auto* again = static_cast<char*>(chunks->allocateChunk(usual, true));
    EXPECT_EQ(std::count(again, again + usual, 0), usual);
    chunks->freeChunk(again);
    chunks->freeChunk(nullptr);
    EXPECT_EQ(chunks->allocateChunk(0, true), nullptr);
}

TEST_F(ChunkManagerTest, RefusesBeyondItsLimitUntilSomethingIsFreed) {
    const auto chunks = make(1);
    void* held[chunksInAUnit];
    for (void*& chunk : held) chunk = chunks->allocateChunk(usual, false);
    EXPECT_EQ(chunks->coreNow(), 1);
    EXPECT_EQ(chunks->coreLimit(), 1);
    EXPECT_EQ(chunks->allocateChunk(usual, false), nullptr);
    EXPECT_FALSE(chunks->reclaim());
    for (void* chunk : held) chunks->freeChunk(chunk);
    void* odd = chunks->allocateChunk(usual + 1, false);
    EXPECT_NE(odd, nullptr) << "kept chunks give way";
    chunks->freeChunk(odd);
}

TEST_F(ChunkManagerTest, ReclaimsWhatItKeepsAndSaysWhetherThatHelps) {
    const auto chunks = make(ChunkManager::noLimit);
    void* chunk = chunks->allocateChunk(usual, false);
    EXPECT_EQ(chunks->coreNow(), 1) << "a begun unit counts as a whole one";
    chunks->freeChunk(chunk);
    EXPECT_EQ(chunks->coreNow(), 1);
    EXPECT_TRUE(chunks->reclaim());
    EXPECT_EQ(chunks->coreNow(), 0);
    EXPECT_FALSE(chunks->reclaim());
    EXPECT_EQ(chunks->swapNow() + chunks->swapLimit(), 0);
}

} // namespace
} // namespace host
