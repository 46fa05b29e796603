// SPDX-License-Identifier: Apache-2.0
// A thread that stays and does one thing after the other as it is told.
#pragma once

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

namespace testsupport {

class Worker {
public:
    ~Worker() {
        (*this)(nullptr);
        thread.join();
    }
    /// Comes back when it is done.
    void operator()(std::function<void()> next) {
        task = std::move(next);
        told = true;
        told.notify_all();
        told.wait(true);
    }

private:
    void run() {
        for (bool more = true; more;) {
            told.wait(false);
            more = task != nullptr;
            if (more) task();
            told = false;
            told.notify_all();
        }
    }

    std::function<void()> task;
    std::atomic<bool> told{false};
    std::thread thread{[this] { run(); }};
};

} // namespace testsupport
