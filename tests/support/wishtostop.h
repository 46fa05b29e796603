// SPDX-License-Identifier: Apache-2.0
// A user who wants to stop whenever asked.
#pragma once

#include "component/objects/services/iguibusystate.h"
#include "tests/support/service.h"

namespace testsupport {

class WishToStop : public Service<IGuiBusyState> {
public:
    bool isCancelled() override { return ++questions; }

    int questions = 0;
};

} // namespace testsupport
