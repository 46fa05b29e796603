// SPDX-License-Identifier: Apache-2.0
// Programs as processes: stopping, watching kin, dying with a reason. For the programs of the tree;
// the component itself uses none of it.
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

/// From here on this process answers for whatever comes of those it starts: the environment tells
/// them who started them, and descendants whose own parent dies are still known as ours. Call it
/// before other threads start.
void superviseDescendants();
/// The processes that this one started, directly or through others, and that still run.
std::vector<std::uint32_t> descendants();

/// The descendants that come to be during the life of this object.
class Offspring {
public:
    Offspring() : before_(descendants()) {}

    std::vector<std::uint32_t> running() const;
    /// Asks each to end, or ends it by force. Returns how many there were.
    std::int32_t end(bool force = false) const;
    /// Asks each to end, and half a second later ends by force all that are there. False when some
    /// still are after two more seconds.
    bool endAll() const;

private:
    std::vector<std::uint32_t> before_;
};

/// Asks a process to end, or ends it by force. One that was halted goes on in order to end.
void endProcess(std::uint32_t processId, bool force = false);

std::uint32_t parentProcessId();
/// False also for one that has ended and that its parent hasn't collected yet.
bool isProcessAlive(std::uint32_t processId);
/// Number and start of a process, as "NUMBER-START" in digits, which no other process of this
/// machine has before it is started anew; empty when there is none that is alive.
std::string processMark(std::uint32_t processId);
/// Whether the process that bore the mark is alive; false for a text that is no mark.
bool isMarkAlive(const std::string& mark);

/// Runs `callback` on a thread of its own within a quarter of a second of the death of the process
/// that answers for this one, as its environment tells, and at once when that has died already.
/// Where nobody said so, the parent is watched; one that had gone before isn't noticed on POSIX.
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
/// The words of the command line, the program's name first: UTF-8 on the target, the bytes as they
/// were given on a POSIX system.
std::vector<std::string> commandLine(int count, char** words);

} // namespace platform
