// SPDX-License-Identifier: Apache-2.0
// The standard channels of a program, whatever its starter made of them.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <thread>

namespace platform {

/// Opens the standard channels that came closed, on nothing, so that no other file gets their
/// numbers, and lets a write that nobody reads fail, where it would end the process otherwise. The
/// first call of main.
void prepareChannels();

/// Whether standard input is a terminal, so that somebody can be asked.
bool isInputTerminal();
/// Whether standard input has something to read, or has ended, within that time.
bool waitForInput(std::uint32_t milliseconds);

/// False once whoever read standard output has gone; true for what has no reader, such as a file.
bool isOutputRead();

bool isErrorTerminal();
/// The width of the terminal behind standard error; 80 where it doesn't tell.
std::int32_t errorColumns();

/// Stands in front of standard error for its lifetime: what the processes that are started from
/// here write there goes to `take`, on a thread of its own and in pieces of at most 4096 bytes as
/// they come; an empty piece says that nothing came for a twentieth of a second. On a POSIX system
/// it gets what this process writes as well, but for the C library's `stderr`: the last words of a
/// process that ends at once go straight to where they belong. Where the system has no means left,
/// nothing is taken. One at a time. `take` may be without memory: then the piece goes on as it is.
class ErrorTap {
public:
    explicit ErrorTap(std::function<void(std::string_view)> take);
    ErrorTap(const ErrorTap&) = delete;
    ErrorTap& operator=(const ErrorTap&) = delete;
    ~ErrorTap();

    /// Ends it: standard error is as before, and what was written until then has been taken. Not
    /// from within `take`.
    void close();
    /// To where standard error goes without the tap. What can't be written is dropped. Any thread.
    void write(std::string_view text) const;

private:
    bool startListening();
    void listen();
    void pass(std::string_view piece) const;

    std::function<void(std::string_view)> take_;
    struct System;
    std::unique_ptr<System> system_; ///< null without a tap
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

} // namespace platform
