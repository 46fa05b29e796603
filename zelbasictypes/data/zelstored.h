// SPDX-License-Identifier: Apache-2.0
/// @file
/// What data-model readers and writers ask of the objects that they are handed.
///
/// Any object fits whose virtual operations begin like these, in this order; nobody deletes an
/// object through them.
#pragma once

class BinInput;
class BinOutput;
class IZelDataModelReader;
class IZelDataModelWriter;
class ZelGuid;

class ZelReadable {
public:
    virtual void readBinary(BinInput& stream) = 0;
    virtual void readModel(IZelDataModelReader& reader) = 0;

protected:
    ~ZelReadable() = default;
};

class ZelWritable {
public:
    virtual void writeModel(IZelDataModelWriter& writer) = 0;
    virtual void writeBinary(BinOutput& stream) = 0;

protected:
    ~ZelWritable() = default;
};

/// An object that names its class.
class ZelIdentified {
public:
    virtual const ZelGuid& classGuid() = 0;

protected:
    ~ZelIdentified() = default;
};
