// SPDX-License-Identifier: Apache-2.0
// What the host's tests have in common: the root manager counts, and is empty after each test.
#pragma once

#include "component/manageraccess.h"
#include "host/componentmanager.h"
#include "host/text.h"

#include <gtest/gtest.h>

namespace host {

class HostTest : public testing::Test {
protected:
    HostTest() { zelSetManager(&rootManager()); }
    ~HostTest() override { rootManager().clear(); }

    static KorString text(const char* utf8) { return toKorString(QString::fromUtf8(utf8)); }

    /// The service as a module finds it, borrowed; null when there is none.
    template <class Service> static Service* find() {
        void* found = nullptr;
        zelGetService(KorCString::borrow(Service::interfaceName), &found);
        return static_cast<Service*>(found);
    }
};

} // namespace host
