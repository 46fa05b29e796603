// SPDX-License-Identifier: Apache-2.0
/// @file
/// The reading side of the data-model file: values and blocks in the order in which they stand.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;
class ZelGuid;
class ZelReadable;

/// Operations answer true, but where they say otherwise; whether all went well shows in `good`, so
/// that a caller may run through its reading and ask once. A value with a name of its own stands in
/// a block of its own; the plain numbers stand bare. The order of the operations is a contract.
class IZelDataModelReader : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDataModelReader";

    virtual bool readBinary(ZelReadable& object) = 0;
    virtual bool readModel(ZelReadable& object) = 0;
    virtual bool readGuid(ZelGuid& value) = 0;
    virtual bool readFloatPair(float value[2]) = 0;
    virtual bool readDoublePair(double value[2]) = 0;
    virtual bool readMatrix(double value[16]) = 0;
    virtual bool readVector(double value[3]) = 0;
    virtual bool readWideString(KorString& value) = 0;
    virtual bool readNarrowString(KorCString& value) = 0;
    virtual bool readDouble(double& value) = 0;
    virtual bool readFloat(float& value) = 0;
    virtual bool readUnsigned(std::uint32_t& value) = 0;
    virtual bool readInt(std::int32_t& value) = 0;
    virtual bool readChar(char& value) = 0;
    virtual bool readByte(unsigned char& value) = 0;
    /// The identifier of the object block ahead, which stays ahead. The reader's own, until the
    /// next call.
    virtual const ZelGuid* peekGuid() = 0;
    /// Enters the block ahead and stores its version; true when it is an object block, else the
    /// reader isn't good any more. `object` isn't looked at, nor is that of `beginNamed`.
    virtual bool beginObject(const void* object, std::uint32_t& version) = 0;
    virtual bool endObject() = 0;
    /// The wide text ahead, as of peekGuid.
    virtual const KorString* peekName() = 0;
    /// Passes the name and peeks at the object behind it.
    virtual bool beginNamed(const void* object, ZelGuid& guid) = 0;
    virtual bool endNamed() = 0;
    /// Enters the block ahead. False, and the position stays, when there is none that can be whole.
    virtual bool beginBlock() = 0;
    /// True also when the reader isn't good.
    virtual bool atBlockEnd() = 0;
    /// Leaves the innermost block from wherever in it the position is.
    virtual bool endBlock() = 0;
    /// Of the block entered last; of one that was refused, what was read.
    virtual std::uint32_t blockTag() = 0;
    virtual std::uint32_t blockVersion() = 0;
    /// Of the object block entered last, nil before the first; the reader's own.
    virtual const ZelGuid* currentGuid() = 0;
    virtual bool good() = 0;
    /// The tag of the block ahead, which stays ahead; 0xFFFFFF at the end.
    virtual std::uint32_t peekTag() = 0;
};
