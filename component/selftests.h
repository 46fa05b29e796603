// SPDX-License-Identifier: Apache-2.0
/// @file
/// Tests that a module carries inside, run by a service of the host.
#pragma once

#include "component/objects/izelunknown.h"

/// One self-test.
struct ZelSelfTest {
    const char* name; ///< a static text
    bool (*run)();    ///< true when the test passed
};

/// The host's test service. It decides what to do with an entry.
class IZelSelfTestService : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelSelfTestService";

    /// Receives one test, valid for as long as the module.
    virtual void take(const ZelSelfTest& test) = 0;
};

/// Adds a test. Called at static initialisation, on one thread.
void zelAddSelfTest(const ZelSelfTest& test);

/// Hands each test to `service`. Without a service the user gets an error message through the
/// host's error service. Does nothing while another run is in progress.
void zelRunSelfTests(IZelSelfTestService* service);
