// SPDX-License-Identifier: Apache-2.0
/// @file
/// The language hook that every component of this library offers.
#pragma once

#include "component/izelcomplanginitializer.h"

/// Connects the module to the host's translator. There is one shared object, offered in the class
/// table.
class DefaultLangInitializer : public IZelCompLangInitializer {
public:
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override;

    /// Takes the host's service "IZelTranslator" for the module's translator, or none when there is
    /// no such service. Always true.
    bool initialize() override;
};
