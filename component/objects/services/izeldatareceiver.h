// SPDX-License-Identifier: Apache-2.0
/// @file
/// The receiver of changes in the settings.
#pragma once

#include "component/objects/izelunknown.h"

class KorString;

/// Receives changes of the settings that it subscribed to; see IDataStore::subscribe().
/// KorDataReceiver implements all operations as empty ones.
class IZelDataReceiver : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDataReceiver";

    /// The key has got this value. Keys, texts and bytes are valid during the call only.
    /// @{
    virtual void receiveBool(const char* key, std::int32_t value) = 0;
    virtual void receiveInt(const char* key, std::int32_t value) = 0;
    virtual void receiveUnsigned(const char* key, std::uint32_t value) = 0;
    virtual void receiveFloat(const char* key, float value) = 0;
    virtual void receiveDouble(const char* key, double value) = 0;
    virtual void receiveString(const char* key, const KorString* value) = 0;
    virtual void receiveData(const char* key, const void* bytes, std::int32_t lengthBytes) = 0;
    /// @}
};
