// SPDX-License-Identifier: Apache-2.0
// The end of a thread, as the thread library of both systems tells it. The language's way, a
// thread-local object with a destructor, would keep the module loaded until each thread that called
// it has ended, or have its variables gone before it is told.
#include "platform/sync.h"

#include <pthread.h>

namespace platform {
namespace {

class Key {
public:
    bool make(void (*callback)(void*)) {
        if (!made_) made_ = ::pthread_key_create(&key_, callback) == 0;
        return made_;
    }
    void remove() {
        if (made_) ::pthread_key_delete(key_);
        made_ = false;
    }
    void set(void* value) { ::pthread_setspecific(key_, value); }

private:
    ::pthread_key_t key_{};
    bool made_ = false;
};

constinit Key endingKey;

} // namespace

void atThreadEnd(void (*callback)(void*), void* value) {
    if (endingKey.make(callback)) endingKey.set(value);
}

void forgetThreadEnds() { endingKey.remove(); }

} // namespace platform
