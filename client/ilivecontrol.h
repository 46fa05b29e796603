// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a host attaches a control connection to an import client.
#pragma once

#include "component/objects/izelunknown.h"

/// The client answers to this interface by its name. Use it on the thread that makes the runs.
class ILiveControl : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "ILiveControl";

    /// Gives the client a control thread, which connects when a run starts. The result is a new
    /// object without a reference that stands for the thread: it keeps the client alive, and its
    /// end, which must not come during a run, ends the thread and the connection. Later runs keep
    /// an existing connection, whatever address they name. Null while the client has a control
    /// thread already. With `traceFrames` each frame is recorded in the trace files.
    virtual IZelUnknown* attachControlThread(bool traceFrames) = 0;
};
