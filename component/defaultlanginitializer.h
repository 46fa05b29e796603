// SPDX-License-Identifier: Apache-2.0
// The module's language hook: one shared object, offered in the class table.
#pragma once

#include "component/izelcomplanginitializer.h"

class DefaultLangInitializer : public IZelCompLangInitializer {
public:
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override;

    /// Takes the host's service "IZelTranslator", or none when there is no such service.
    bool initialize() override;
};
