// SPDX-License-Identifier: Apache-2.0
// The members of the module's empty class, out of line so that the module exports them.
#include "component/module/brix.h"

brix::brix() = default;
brix::~brix() = default;
brix& brix::operator=(const brix&) { return *this; }
