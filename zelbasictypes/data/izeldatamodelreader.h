// SPDX-License-Identifier: Apache-2.0
/// @file
/// The reading side of data-model files.
#pragma once

#include "component/objects/izelunknown.h"

class KorCString;
class KorString;
class ZelGuid;
class ZelReadable;

/// Reads values and blocks in the order of the file. docs/formats.md describes the format.
///
/// Operations return true unless they say otherwise. Whether everything went well is told by
/// good(), so that a caller may read to the end and ask once. A value with an operation of its own
/// name is stored in a block of its own, while plain numbers are stored bare. A reader may be used
/// by one thread at a time. The order of the operations is a contract with other modules.
class IZelDataModelReader : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IZelDataModelReader";

    /// Has the object read itself from the stream below.
    virtual bool readBinary(ZelReadable& object) = 0;
    /// Has the object read itself from this reader.
    virtual bool readModel(ZelReadable& object) = 0;
    /// Reads a value that has a block of its own.
    /// @{
    virtual bool readGuid(ZelGuid& value) = 0;
    virtual bool readFloatPair(float value[2]) = 0;
    virtual bool readDoublePair(double value[2]) = 0;
    virtual bool readMatrix(double value[16]) = 0;
    virtual bool readVector(double value[3]) = 0;
    virtual bool readWideString(KorString& value) = 0;
    virtual bool readNarrowString(KorCString& value) = 0;
    /// @}
    /// Reads a bare number.
    /// @{
    virtual bool readDouble(double& value) = 0;
    virtual bool readFloat(float& value) = 0;
    virtual bool readUnsigned(std::uint32_t& value) = 0;
    virtual bool readInt(std::int32_t& value) = 0;
    virtual bool readChar(char& value) = 0;
    virtual bool readByte(unsigned char& value) = 0;
    /// @}
    /// The identifier of the object block ahead, which isn't consumed. Owned by the reader, and
    /// valid until the next call.
    virtual const ZelGuid* peekGuid() = 0;
    /// Enters the block ahead and stores its version. False, and the reader isn't good any more,
    /// when it isn't an object block. `object` isn't used.
    virtual bool beginObject(const void* object, std::uint32_t& version) = 0;
    /// As endBlock().
    virtual bool endObject() = 0;
    /// The wide text ahead, which isn't consumed. Owned by the reader, and valid until the next
    /// call.
    virtual const KorString* peekName() = 0;
    /// Reads a name and stores the identifier of the object block after it, which isn't entered.
    /// `object` isn't used.
    virtual bool beginNamed(const void* object, ZelGuid& guid) = 0;
    /// Ends a named section.
    virtual bool endNamed() = 0;
    /// Enters the block ahead. False, with the position unchanged, when there is none or it can't
    /// be complete.
    virtual bool beginBlock() = 0;
    /// Whether the innermost block has been read to its end. True also when the reader isn't good.
    virtual bool atBlockEnd() = 0;
    /// Moves to the end of the innermost block and leaves it.
    virtual bool endBlock() = 0;
    /// The header of the block entered last; after a refused block, what was read of it.
    /// @{
    virtual std::uint32_t blockTag() = 0;
    virtual std::uint32_t blockVersion() = 0;
    /// @}
    /// The identifier of the object block entered last; nil before the first. Owned by the reader.
    virtual const ZelGuid* currentGuid() = 0;
    /// False after the first error, until the reader gets another stream.
    virtual bool good() = 0;
    /// The tag of the block ahead, which isn't consumed; 0xFFFFFF at the end.
    virtual std::uint32_t peekTag() = 0;
};
