// SPDX-License-Identifier: Apache-2.0
/// @file
/// Clean-up of a module that is unloaded while the process goes on.
#pragma once

namespace platform {

/// A static object of this class has its module call `callback` once when it is unloaded, on the
/// unloading thread, before the code goes away. Callbacks run in the reverse order of their
/// registration. Constant-initialised variables are still intact then.
///
/// Nothing is called at the end of the process, when other threads may still be at work, and
/// nothing is ever called in a program.
class AtUnload {
public:
    /// Registers `callback`, which must not be null.
    explicit AtUnload(void (*callback)());
    AtUnload(const AtUnload&) = delete;
    AtUnload& operator=(const AtUnload&) = delete;

    /// Called by the system's part of this class, which knows when the module is unloaded.
    static void callAll();

private:
    /// Defined there, so that the part is in every module with such an object.
    static void watch();

    void (*callback_)();
    AtUnload* next_;
};

} // namespace platform
