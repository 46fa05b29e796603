// SPDX-License-Identifier: Apache-2.0
/// @file
/// The base of what listens to the host's settings: hears everything and does nothing.
#pragma once

#include "component/objects/services/izeldatareceiver.h"

/// A subclass overrides the kinds of value that it needs. One that adds no interface keeps the
/// `qi` of this class and doesn't answer to a name of its own.
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
