// SPDX-License-Identifier: Apache-2.0
// The control thread that a host asked for, as a counted object.
#pragma once

#include "client/clientcontrolthread.h"
#include "client/tessoracadimporterclient.h"
#include "component/objects/iptr.h"
#include "component/objects/queryinterface.h"

/// The thread is attached from construction to destruction, which detaches it by ending it.
class LiveControl : public virtual IZelUnknown {
public:
    LiveControl(TessoraCADImporterClient& owner, bool traceFrames) : client(&owner) {
        thread.setTracing(traceFrames);
        owner.attach(&thread);
    }

    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<>(this, className(), name, result);
    }
    const char* className() override { return "LiveControl"; }

private:
    IPtr<TessoraCADImporterClient> client;
    ClientControlThread thread;
};
