// SPDX-License-Identifier: Apache-2.0
// A pool as the process makes its own.
#pragma once

#include "zelbasictypes/memory/bucketmemorypool.h"

inline BucketMemoryPool* standardPool() {
    return new BucketMemoryPool(BucketMemoryPool::standardGranularity,
                                BucketMemoryPool::standardLinearMax,
                                BucketMemoryPool::standardBucketMax);
}
