// SPDX-License-Identifier: Apache-2.0
/// @file
/// The writing side of data-model files.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;
class ZelGuid;
class ZelIdentified;
class ZelWritable;

/// Writes values and blocks; the conventions are those of IZelDataModelReader.
class IZelDataModelWriter : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDataModelWriter";

    /// Has the object write itself to the stream below.
    virtual bool writeBinary(ZelWritable& object) = 0;
    /// Has the object write itself to this writer.
    virtual bool writeModel(ZelWritable& object) = 0;
    /// Writes a value in a block of its own.
    /// @{
    virtual bool writeGuid(const ZelGuid& value) = 0;
    virtual bool writeFloatPair(const float value[2]) = 0;
    virtual bool writeDoublePair(const double value[2]) = 0;
    virtual bool writeMatrix(const double value[16]) = 0;
    virtual bool writeVector(const double value[3]) = 0;
    virtual bool writeWideString(const KorString& value) = 0;
    virtual bool writeNarrowString(const KorCString& value) = 0;
    /// @}
    /// Writes a bare number.
    /// @{
    virtual bool writeDouble(double value) = 0;
    virtual bool writeFloat(float value) = 0;
    virtual bool writeUnsigned(std::uint32_t value) = 0;
    virtual bool writeInt(std::int32_t value) = 0;
    virtual bool writeChar(char value) = 0;
    virtual bool writeByte(unsigned char value) = 0;
    /// @}
    /// Opens an object block with the identifier of `object`'s class.
    virtual bool beginObject(ZelIdentified& object, std::uint32_t version) = 0;
    /// As endBlock().
    virtual bool endObject() = 0;
    /// Writes the name of a section; an object block must follow.
    virtual bool beginNamed(const KorString& name) = 0;
    /// Ends a named section.
    virtual bool endNamed() = 0;
    /// Opens an object block with this identifier.
    virtual bool beginGuidBlock(const ZelGuid& guid, std::uint32_t version) = 0;
    /// Opens a block. `tag` has 24 bits, `version` has 8.
    virtual bool beginBlock(std::uint32_t tag, std::uint32_t version) = 0;
    /// Ends the innermost block and fills in its length.
    virtual bool endBlock() = 0;
    /// False after the first error.
    virtual bool good() = 0;
};
