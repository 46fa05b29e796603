// SPDX-License-Identifier: Apache-2.0
// Programs as processes: stopping, watching the parent, dying with a reason. For the programs of
// the tree; the component itself uses none of it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace platform {

/// Runs `callback` on a thread of its own each time the user or the system asks this process to
/// stop, in a way that its starter hasn't told it to ignore. Replaces an earlier callback. Call it
/// once, early, before other threads start.
void onInterrupt(std::function<void()> callback);

/// Direct children that still run.
std::vector<std::uint32_t> childProcesses();
/// Asks each direct child process to end, or ends it by force. Returns how many there were.
std::int32_t terminateChildren(bool force = false);

std::uint32_t parentProcessId();
/// False also for one that has ended and that its parent hasn't collected yet.
bool isProcessAlive(std::uint32_t processId);
/// Runs `callback` on a thread of its own within a quarter of a second of the parent's death. Call
/// it early: on POSIX a parent that is gone already isn't noticed.
void onParentDeath(std::function<void()> callback);

/// Turns a crash into the one line "PROGRAM: crashed (KIND) while DESCRIPTION" on standard error,
/// removes the file `unlinkPath`, unless empty, and ends the process with `exitCode`. `describe`
/// may be null; it runs in the signal handler, so it may only do what is safe there. The texts are
/// copied. An overflow of the stack is told of the calling thread only. A later call replaces all.
void onCrash(const char* program, const char* (*describe)(), const std::string& unlinkPath,
             std::int32_t exitCode);

/// Limits for a worker; what goes past them is refused, or the process ends. 0 sets none. A build
/// with the address sanitizer has no limit on memory.
bool limitMemory(std::uint64_t bytes);
bool limitProcessorTime(std::uint32_t seconds);

/// Ends the process at once, without destructors or exit handlers.
[[noreturn]] void exitNow(std::int32_t exitCode);

/// The path of the running program, in the library's form; empty when it can't be told.
std::u16string executablePath();

/// Whether standard input is a terminal, so that somebody can be asked.
bool isInputTerminal();
/// Whether standard input has something to read, or has ended, within that time.
bool waitForInput(std::uint32_t milliseconds);

} // namespace platform
