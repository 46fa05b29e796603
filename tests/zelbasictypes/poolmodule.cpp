// SPDX-License-Identifier: Apache-2.0
// A module with a copy of the library of its own, and doors to that copy's pool.
#include "component/manageraccess.h"
#include "zelbasictypes/memory/bucketmemorypool.h"

extern "C" {

void setManager(IZelComponentManager* manager) { zelSetManager(manager); }
void* allocateBlock(std::int32_t size, unsigned* got) { return bucketAlloc(size, *got); }
void freeBlock(std::int32_t size, void* block) { bucketFree(size, block); }
bool connectPool() { return connectSharedPool(); }
}
