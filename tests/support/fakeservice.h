// SPDX-License-Identifier: Apache-2.0
// What objects for tests have in common.
#pragma once

#include "component/objects/queryinterface.h"
#include "component/objects/services/iguibusystate.h"

#include <cstdint>

namespace testsupport {

/// An object that answers for one interface alone.
template <class Interface> class Fake : public Interface {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<Interface>(this, className(), name, result);
    }
    const char* className() override { return "Fake"; }
};

/// A user who wants to stop whenever asked.
class WishToStop : public Fake<IGuiBusyState> {
public:
    bool isCancelled() override { return ++questions; }

    int questions = 0;
};

} // namespace testsupport
