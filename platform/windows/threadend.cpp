// SPDX-License-Identifier: Apache-2.0
// The end of a thread, as the thread library tells it: the compiler's thread-local variables are
// gone before their destructors run, and so would be what they hold.
#include "platform/sync.h"

#include <pthread.h>

namespace platform {

/// Without a key to be had, what waits for the end of a thread stays with the process.
void atThreadEnd(void (*callback)(void*), void* value) {
    static pthread_key_t key{};
    static const bool hasKey = ::pthread_key_create(&key, callback) == 0;
    if (hasKey) ::pthread_setspecific(key, value);
}

} // namespace platform
