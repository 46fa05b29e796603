// SPDX-License-Identifier: Apache-2.0
// What a module does when it is unloaded while the process goes on.
#pragma once

namespace platform {

/// A static object of this class has its module call `callback` once, on the thread that unloads
/// it, before the code goes and while constant initialised variables are whole; the callback named
/// last comes first. Not at the end of the process, when other threads may still be at work, and
/// never in a program.
class AtUnload {
public:
    explicit AtUnload(void (*callback)());
    AtUnload(const AtUnload&) = delete;
    AtUnload& operator=(const AtUnload&) = delete;

    /// For the system's own part, which knows when.
    static void callAll();

private:
    /// Defined there, so that the part is in every module with such an object.
    static void watch();

    void (*callback_)();
    AtUnload* next_;
};

} // namespace platform
