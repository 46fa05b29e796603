// SPDX-License-Identifier: Apache-2.0
/// @file
/// What data-model readers and writers need from the objects that they are given.
///
/// Any object fits whose virtual operations begin like these, in this order. No object is deleted
/// through these classes.
#pragma once

class BinInput;
class BinOutput;
class IZelDataModelReader;
class IZelDataModelWriter;
class ZelGuid;

/// An object that can be read.
class ZelReadable {
public:
    /// Fills the object; failure shows in the stream or the reader.
    /// @{
    virtual void readBinary(BinInput& stream) = 0;
    virtual void readModel(IZelDataModelReader& reader) = 0;
    /// @}

protected:
    ~ZelReadable() = default;
};

/// An object that can be written.
class ZelWritable {
public:
    /// Writes the object; failure shows in the writer or the stream.
    /// @{
    virtual void writeModel(IZelDataModelWriter& writer) = 0;
    virtual void writeBinary(BinOutput& stream) = 0;
    /// @}

protected:
    ~ZelWritable() = default;
};

/// An object that has the identifier of its class.
class ZelIdentified {
public:
    /// The identifier, which lives as long as the object.
    virtual const ZelGuid& classGuid() = 0;

protected:
    ~ZelIdentified() = default;
};
