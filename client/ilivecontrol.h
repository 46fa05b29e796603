// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a host makes the runs of an import client connected ones. The client answers to this
/// interface by its name.
#pragma once

#include "component/objects/izelunknown.h"

class ILiveControl : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "ILiveControl";

    /// Gives the client a control thread, which connects when a run starts. The answer, a new
    /// object without a reference, stands for it: it keeps the client alive, and its end, which
    /// mustn't come during a run, ends the thread and the connection. Later runs keep a connection
    /// that stands, whatever address they name. Null while the client has one already. With
    /// `traceFrames` each frame goes to the trace files (clientcontrolthread.h).
    virtual IZelUnknown* attachControlThread(bool traceFrames) = 0;
};
