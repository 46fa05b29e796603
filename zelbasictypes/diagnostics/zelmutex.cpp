// SPDX-License-Identifier: Apache-2.0
// Waiting on mutexes.
#include "zelbasictypes/diagnostics/zelmutex.h"

namespace {

constexpr double longestWaitMs = platform::infinite - 1.0;

/// At least 1, and never the value that means "without limit".
std::uint32_t millisecondsOf(double seconds) {
    const double milliseconds = seconds * 1000;
    if (milliseconds >= longestWaitMs) return platform::infinite - 1;
    return milliseconds > 1 ? static_cast<std::uint32_t>(milliseconds) : 1;
}

bool waitOn(const std::unique_ptr<platform::Waitable>& handle, std::uint32_t milliseconds) {
    return handle && handle->wait(milliseconds);
}

} // namespace

void ZelMutex::lock() { waitOn(handle, platform::infinite); }

void ZelMutex::unlock() {
    if (handle) handle->signal();
}

bool ZelMutex::tryLock() { return waitOn(handle, 0); }

bool ZelMutex::lockFor(double seconds) { return waitOn(handle, millisecondsOf(seconds)); }

bool ZelNamedMutex::create(const char* name) {
    if (handle || !name) return false;
    handle = platform::createNamedMutex(name);
    return handle != nullptr;
}

bool ZelNamedMutex::open(const char* name) {
    if (handle || !name) return false;
    handle = platform::openNamedMutex(name);
    return handle != nullptr;
}

bool ZelNamedMutex::close() {
    if (!handle) return false;
    handle.reset();
    return true;
}

bool ZelNamedMutex::lock() {
    if (!handle) return false;
    handle->wait(platform::infinite);
    return true;
}

bool ZelNamedMutex::unlock() {
    if (!handle) return false;
    handle->signal();
    return true;
}

bool ZelNamedMutex::tryLock() { return waitOn(handle, 0); }

bool ZelNamedMutex::lockFor(double seconds) { return waitOn(handle, millisecondsOf(seconds)); }
