// SPDX-License-Identifier: Apache-2.0
// The barrier on all threads, by a system call that interrupts the processors they run on.
#include "platform/sync.h"

#include <linux/membarrier.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace platform {
namespace {

bool membarrier(int command) { return ::syscall(SYS_membarrier, command, 0, 0) == 0; }

} // namespace

bool barrierOnAllThreads() {
    static const bool registered = membarrier(MEMBARRIER_CMD_REGISTER_PRIVATE_EXPEDITED);
    return registered && membarrier(MEMBARRIER_CMD_PRIVATE_EXPEDITED);
}

} // namespace platform
