// SPDX-License-Identifier: Apache-2.0
// The end of a thread, as the thread library tells it: the compiler's thread-local variables are
// gone before their destructors run, and so would be what they hold.
#include "platform/sync.h"

#include <pthread.h>

namespace platform {

void atThreadEnd(void (*callback)(void*), void* value) {
    static const pthread_key_t key = [callback] {
        pthread_key_t made{};
        ::pthread_key_create(&made, callback);
        return made;
    }();
    ::pthread_setspecific(key, value);
}

} // namespace platform
