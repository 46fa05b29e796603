// SPDX-License-Identifier: Apache-2.0
// The empty class by which the module can be linked against; nothing calls it.
#pragma once

class brix {
public:
    brix();
    ~brix();
    brix& operator=(const brix&);
};
