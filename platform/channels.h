// SPDX-License-Identifier: Apache-2.0
/// @file
/// The standard input, output and error of a program, whatever its starter made of them.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <thread>

namespace platform {

/// Opens closed standard channels on the null device, so that no other file gets their numbers, and
/// makes a write to a closed pipe fail instead of ending the process. Call it first in main.
void prepareChannels();

/// Whether standard input is a terminal, so that somebody can be asked.
bool isInputTerminal();
/// Waits until standard input has something to read or has ended. False when the time has passed.
bool waitForInput(std::uint32_t milliseconds);

/// False once the reader of standard output has gone. True for an output without a reader, such as
/// a file.
bool isOutputRead();

/// Whether standard error is a terminal, so that a progress line can be rewritten.
bool isErrorTerminal();
/// The width of the terminal behind standard error, or 80 when it can't be told.
std::int32_t errorColumns();

/// Intercepts standard error for its lifetime. Whatever child processes write there is passed to
/// `take`, in pieces of at most 4096 bytes as they arrive; an empty piece means that nothing
/// arrived for 50 ms.
///
/// `take` runs on a thread that the tap owns. If it throws std::bad_alloc, the piece goes on to the
/// original standard error.
///
/// On a POSIX system this process's own output is intercepted too, except what goes through the C
/// library's `stderr`, so that the last words of a crashing process reach their reader. When the
/// system has no resources for a tap, nothing is intercepted. At most one tap may exist at a time.
class ErrorTap {
public:
    /// Starts intercepting.
    explicit ErrorTap(std::function<void(std::string_view)> take);
    ErrorTap(const ErrorTap&) = delete;
    ErrorTap& operator=(const ErrorTap&) = delete;
    ~ErrorTap();

    /// Restores standard error and returns once everything written until then has been passed to
    /// `take`. Must not be called from `take`. Later calls do nothing.
    void close();
    /// Writes to the original standard error. What can't be written is dropped. Any thread may call
    /// it.
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
