// SPDX-License-Identifier: Apache-2.0
// Looks after a run from a thread of its own, which no loop of the run can hold up.
#pragma once

#include "server/progress.h"

#include <condition_variable>
#include <functional>
#include <thread>

namespace server {

struct WatcherOptions {
    double processorSeconds = 0;   ///< the limit; 0: none
    std::function<void()> atLimit; ///< called on the watcher's thread, once
    int stillSeconds = 10;         ///< of the clock: how long the run may stand still unmentioned
};

/// Says so whenever nothing has moved for a while, and tells when the process has used up its time.
/// What it calls must not end the watcher. Its life lies within that of the progress.
class Watcher {
public:
    Watcher(Progress& progress, WatcherOptions options);
    ~Watcher();
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

private:
    void watch();

    Progress& progress_;
    WatcherOptions options_;
    std::mutex lock_;
    std::condition_variable ending_;
    bool ends_ = false;
    std::thread thread_;
};

} // namespace server
