// SPDX-License-Identifier: Apache-2.0
// What every double of a host's service has to say about itself.
#pragma once

#include "component/objects/queryinterface.h"

namespace testsupport {

/// Answers for its one interface; a test writes the operations.
template <class Interface> class Service : public Interface {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<Interface>(this, className(), name, result);
    }
    const char* className() override { return "Service"; }
};

} // namespace testsupport
