// SPDX-License-Identifier: Apache-2.0
/// @file
/// The writing side of the data-model file.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;
class ZelGuid;
class ZelIdentified;
class ZelWritable;

/// The conventions are those of IZelDataModelReader.
class IZelDataModelWriter : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDataModelWriter";

    virtual bool writeBinary(ZelWritable& object) = 0;
    virtual bool writeModel(ZelWritable& object) = 0;
    virtual bool writeGuid(const ZelGuid& value) = 0;
    virtual bool writeFloatPair(const float value[2]) = 0;
    virtual bool writeDoublePair(const double value[2]) = 0;
    virtual bool writeMatrix(const double value[16]) = 0;
    virtual bool writeVector(const double value[3]) = 0;
    virtual bool writeWideString(const KorString& value) = 0;
    virtual bool writeNarrowString(const KorCString& value) = 0;
    virtual bool writeDouble(double value) = 0;
    virtual bool writeFloat(float value) = 0;
    virtual bool writeUnsigned(std::uint32_t value) = 0;
    virtual bool writeInt(std::int32_t value) = 0;
    virtual bool writeChar(char value) = 0;
    virtual bool writeByte(unsigned char value) = 0;
    /// Opens an object block with the identifier that `object` names.
    virtual bool beginObject(ZelIdentified& object, std::uint32_t version) = 0;
    virtual bool endObject() = 0;
    /// A named section is its name followed by an object block.
    virtual bool beginNamed(const KorString& name) = 0;
    virtual bool endNamed() = 0;
    virtual bool beginGuidBlock(const ZelGuid& guid, std::uint32_t version) = 0;
    /// `tag` has 24 bits, `version` 8.
    virtual bool beginBlock(std::uint32_t tag, std::uint32_t version) = 0;
    virtual bool endBlock() = 0;
    virtual bool good() = 0;
};
