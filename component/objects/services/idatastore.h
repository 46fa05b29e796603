// SPDX-License-Identifier: Apache-2.0
/// @file
/// The host service for settings.
#pragma once

#include "component/objects/izelunknown.h"

class IZelDataReceiver;
class KorString;

/// The host's settings. Keys are terminated texts such as "General/Show Batch Processing".
class IDataStore : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IDataStore";

    /// The value of a key, or `fallback` when it isn't set. A bool is on when it isn't 0.
    /// @{
    virtual std::int32_t getBool(const char* key, std::int32_t fallback) = 0;
    virtual double getDouble(const char* key, double fallback) = 0;
    /// @}
    /// The text of a key, borrowed until the key changes, or `fallback`, which may be null.
    virtual const KorString* getString(const char* key, const KorString* fallback) = 0;
    /// Reports later changes of the key to `receiver`. The store takes a reference to it.
    virtual void subscribe(const char* key, IZelDataReceiver* receiver) = 0;
};
