// SPDX-License-Identifier: Apache-2.0
// What programs need to know about their process, its parent and its children, and how they end.
//
// For programs only: these calls change settings of the whole process, which a component inside a
// foreign host has no business with.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace platform {

/// Runs `callback` at each interrupt (Ctrl-C, SIGINT) and each request to terminate, which no
/// longer end the process. It runs on one thread of its own, one call after the other, so it may do
/// anything. A later call replaces the callback. Call it before other threads start.
void onInterrupt(std::function<void()> callback);

/// Runs `callback` once, on a thread of its own, when the process that started this one has ended.
/// Noticed within half a second.
void onParentDeath(std::function<void()> callback);

/// When the process crashes (bad memory access, arithmetic fault, abort, bad instruction), writes
/// the line "PROGRAM: crashed (KIND): DESCRIPTION" to standard error, removes `fileToRemove` unless
/// it is empty, and ends with `exitCode`. `describe` may be null; it runs in the signal handler, so
/// it may only do what is safe there. The names are copied, the path at up to 4000 bytes. A stack
/// overflow is reported on the thread that made this call only. A later call replaces it all.
void onCrash(const char* program, const char* (*describe)(), const std::u16string& fileToRemove,
             int exitCode);

/// Ends the process at once: no destructors, no exit handlers, no flushing.
[[noreturn]] void exitNow(int exitCode);

/// Direct children of this process that still run.
std::vector<std::uint32_t> childProcesses();
/// Asks each of them to end, or ends it without asking; false when there was none.
bool terminateChildren(bool withoutAsking = false);

/// 0 when there is none that could be told.
std::uint32_t parentProcessId();
/// False also for one that has ended but that its parent hasn't looked after yet.
bool processIsAlive(std::uint32_t processId);

/// From here on the process gets at most that much memory (address space); what goes beyond fails
/// as when memory is short. False when the system refuses.
bool limitMemory(std::uint64_t bytes);

/// Full path of the running program, with backslashes; empty when it can't be told.
std::u16string executablePath();

/// True when standard input is a terminal, so that somebody can be asked.
bool isInputTerminal();

} // namespace platform
