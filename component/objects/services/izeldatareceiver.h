// SPDX-License-Identifier: Apache-2.0
// Hears of changes in the settings store.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

class IZelDataReceiver : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDataReceiver";

    virtual void receiveBool(const char* key, std::int32_t value) = 0;
    virtual void receiveInt(const char* key, std::int32_t value) = 0;
    virtual void receiveUnsigned(const char* key, std::uint32_t value) = 0;
    virtual void receiveFloat(const char* key, float value) = 0;
    virtual void receiveDouble(const char* key, double value) = 0;
    virtual void receiveString(const char* key, const KorString* value) = 0;
    virtual void receiveData(const char* key, const void* bytes, std::int32_t lengthBytes) = 0;
};
