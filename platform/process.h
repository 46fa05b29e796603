// SPDX-License-Identifier: Apache-2.0
/// @file
/// Programs as processes: stop requests, child processes, crashes and limits. This is for the
/// programs of the project; the component itself uses none of it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace platform {

/// Runs `callback`, on a thread of its own, each time the user or the system asks this process to
/// stop, unless the starter told it to ignore such requests. It replaces an earlier callback. Call
/// it once, early, before other threads start.
void onInterrupt(std::function<void()> callback);

/// Makes this process responsible for all its descendants: the environment tells them which process
/// that is, and descendants whose own parent dies still count as ours. Call it before other threads
/// start.
void superviseDescendants();
/// The running processes that this one started, directly or indirectly.
std::vector<std::uint32_t> descendants();

/// The descendants that are started while this object lives. One thread uses it.
class Offspring {
public:
    Offspring() : before_(descendants()) {}

    /// The numbers of those that still run.
    std::vector<std::uint32_t> running() const;
    /// Asks each of them to end, or ends it by force. Returns how many there were.
    std::int32_t end(bool force = false) const;
    /// Asks each of them to end and, half a second later, ends the rest by force. False when one
    /// still runs two seconds after that.
    bool endAll() const;

private:
    std::vector<std::uint32_t> before_;
};

/// Asks a process to end, or ends it by force. A stopped process is resumed so that it can end.
void endProcess(std::uint32_t processId, bool force = false);

/// The number of the process that started this one; another one's, once that has died.
std::uint32_t parentProcessId();
/// Whether the process exists and runs. False for one that has ended but that its parent hasn't
/// collected yet.
bool isProcessAlive(std::uint32_t processId);
/// Identifies a running process as "NUMBER-START", its number and start time in digits. Unlike the
/// number alone, no other process of this machine gets it before the next boot. Empty when no such
/// process runs.
std::string processMark(std::uint32_t processId);
/// Whether the process with this mark still runs; false for a text that isn't a mark.
bool isMarkAlive(const std::string& mark);

/// Runs `callback`, on a thread of its own, within a quarter of a second of the death of the
/// process responsible for this one, at once when it has died already. That process is named by the
/// environment (see superviseDescendants()). Otherwise the parent is watched; on POSIX a parent
/// that died before the call isn't noticed.
void onParentDeath(std::function<void()> callback);

/// Installs a crash handler. It prints "PROGRAM: crashed (KIND) while DESCRIPTION" to standard
/// error, removes the file `unlinkPath` unless that is empty, and ends the process with `exitCode`.
///
/// `describe` supplies the description and may be null. It runs in the signal handler, so it may
/// only do what is safe there. The texts are copied. A stack overflow is caught on the calling
/// thread only. A later call replaces everything.
void onCrash(const char* program, const char* (*describe)(), const std::string& unlinkPath,
             std::int32_t exitCode);

/// Limits for a worker process. Memory beyond the limit is refused; a process that has used up its
/// processor time is ended. 0 sets no limit. False when the system refuses. A build with the
/// address sanitizer has no memory limit.
/// @{
bool limitMemory(std::uint64_t bytes);
bool limitProcessorTime(std::uint32_t seconds);
/// @}

/// Ends the process at once, without destructors or exit handlers.
[[noreturn]] void exitNow(std::int32_t exitCode);

/// The path of the running program in the library's form; empty when it can't be told.
std::u16string executablePath();
/// The words of the command line, starting with the program's name: in UTF-8 on Windows, as the
/// bytes that were given on a POSIX system.
std::vector<std::string> commandLine(int count, char** words);

} // namespace platform
