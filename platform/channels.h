// SPDX-License-Identifier: Apache-2.0
// The standard channels of a program, whatever its starter made of them.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
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

/// Stands in front of standard error for its lifetime: what this process and those it starts write
/// there goes to `take`, on a thread of its own and in pieces as they come; an empty piece says
/// that nothing came for a twentieth of a second. Where the system has no means left, nothing is
/// taken and all goes its usual way. One at a time.
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
    void listen();

    std::function<void(std::string_view)> take_;
    std::int32_t original_ = -1; ///< a descriptor; -1 without a tap
    std::int32_t source_ = -1;
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

} // namespace platform
