// SPDX-License-Identifier: Apache-2.0
// The tests that a module carries inside, run by a service of the host.
#pragma once

#include "component/objects/izelunknown.h"

/// One self-test; `name` is a static text, `run` tells whether the test passed.
struct ZelSelfTest {
    const char* name;
    bool (*run)();
};

/// The host's test service, which decides what to do with an entry.
class IZelSelfTestService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelSelfTestService";

    virtual void take(const ZelSelfTest& test) = 0;
};

/// Adds an entry, at static initialisation. The import module itself has none.
void zelAddSelfTest(const ZelSelfTest& test);

/// Hands each entry to `service`. Without one, reports that to the user through the host's error
/// service. Does nothing while a run is in progress.
void zelRunSelfTests(IZelSelfTestService* service);
