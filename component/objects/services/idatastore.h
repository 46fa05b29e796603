// SPDX-License-Identifier: Apache-2.0
// The host's settings store. Keys are texts like "General/Show Batch Processing".
#pragma once

#include "component/objects/izelunknown.h"

class IZelDataReceiver;
class KorString;

class IDataStore : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IDataStore";

    /// Non-zero means on. `fallback` is given back for a key that is not there.
    virtual std::int32_t getBool(const char* key, std::int32_t fallback) = 0;
    virtual double getDouble(const char* key, double fallback) = 0;
    /// Borrowed until the key changes. `fallback`, which may be null, for a key that is not there.
    virtual const KorString* getString(const char* key, const KorString* fallback) = 0;
    /// Later changes of the key reach the receiver; the store takes a reference on it.
    virtual void subscribe(const char* key, IZelDataReceiver* receiver) = 0;
};
