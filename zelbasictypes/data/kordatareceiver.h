// SPDX-License-Identifier: Apache-2.0
/// @file
/// A base class for receivers of the host's settings.
#pragma once

#include "component/objects/services/izeldatareceiver.h"

/// Receives everything and does nothing. A subclass overrides the kinds of value that it needs; if
/// it adds no interface, it keeps this class's `qi` and has no name of its own there.
class KorDataReceiver : public IZelDataReceiver {
public:
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override;

    void receiveBool(const char*, std::int32_t) override {}
    void receiveInt(const char*, std::int32_t) override {}
    void receiveUnsigned(const char*, std::uint32_t) override {}
    void receiveFloat(const char*, float) override {}
    void receiveDouble(const char*, double) override {}
    void receiveString(const char*, const KorString*) override {}
    void receiveData(const char*, const void*, std::int32_t) override {}
};
