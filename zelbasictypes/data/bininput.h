// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinInput: typed numbers out of a device of bytes.
///
/// Streams report without exceptions: a typed read is true when all its elements arrived, and at
/// the end of the data it is false while the stream stays good. One stream belongs to one thread.
#pragma once

#include "zelbasictypes/data/bigendian.h"
#include "zelbasictypes/data/binio_scrambler.h"

/// The order of the virtual operations is a contract with other modules.
class BinInput {
public:
    static constexpr std::uint64_t stageBytes = 1024;

    BinInput() = default;
    BinInput(const BinInput&) = delete;
    BinInput& operator=(const BinInput&) = delete;
    virtual ~BinInput() = default;

    /// Up to `count` bytes from the device, as they stand there; 0 at the end of the data, on error
    /// and without a device.
    virtual std::uint64_t readRaw(void* buffer, std::uint64_t count) = 0;
    /// Of the device, in bytes; 0 without one.
    virtual std::int64_t tell() const = 0;
    /// From the start of the device or else from its end; false only without a device.
    virtual bool seek(std::int64_t offset, bool fromStart = true) = 0;
    /// A device is open and has met no error.
    virtual bool good() const = 0;
    /// Harmless when closed already. False when the device complains.
    virtual bool close() = 0;

    /// Elements that arrived before the data ended are in `dest`.
    bool read(char* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(signed char* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(unsigned char* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(std::int16_t* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(std::uint16_t* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(char16_t* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(std::int32_t* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(std::uint32_t* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(std::int64_t* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(std::uint64_t* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(float* dest, std::uint64_t count) { return readTyped(dest, count); }
    bool read(double* dest, std::uint64_t count) { return readTyped(dest, count); }

    /// Elements that take `width` bytes each in the stream, 1 to 8: wider ones are cut to their low
    /// bytes, narrower ones carry their sign when the element is signed. False for another width.
    template <class T> bool read(T* dest, unsigned width, std::uint64_t count) {
        return width == sizeof(T) ? readTyped(dest, count) : readElements(dest, width, count);
    }

    /// Straight into `buffer`, in one call of the device; the number of bytes read.
    std::uint64_t readBytes(void* buffer, std::uint64_t count);
    /// Up to 1024 bytes into the stage, where `*staged` then points until the next operation.
    std::uint64_t readStaged(const std::uint8_t** staged, std::uint64_t count);
    /// The signed number ahead, which stays to be read; -1 when there isn't a whole one, and then
    /// what there was of it is behind.
    std::int32_t peekInt();

    /// Total length of the source in bytes; 0 for one that can't be measured.
    std::uint64_t size() const { return size_; }
    /// Bits in a block's length field: 32 or 64, or 0 as long as no file block decided.
    std::int32_t lengthWidth() const { return lengthWidth_; }
    /// These decide once: false, and nothing changed, when it has been decided.
    bool setLength32() { return decideLength(32); }
    bool setLength64() { return decideLength(64); }
    void setLengthWidth(std::int32_t bits) { lengthWidth_ = bits; }

private:
    std::uint8_t buffer_[stageBytes];

protected:
    std::uint64_t size_ = 0;

private:
    std::int32_t lengthWidth_ = 0;

protected:
    /// Bytes behind the device's position that a device holds in memory already. It may leave this
    /// empty. Where it doesn't, typed reads take from here without a call, and `tell` and `readRaw`
    /// must go by what is left.
    const std::uint8_t* held_ = nullptr;
    const std::uint8_t* heldEnd_ = nullptr;
    std::uint64_t heldBytes() const { return static_cast<std::uint64_t>(heldEnd_ - held_); }
    /// Moves up to `count` held bytes; the number of them.
    std::uint64_t takeHeld(void* buffer, std::uint64_t count);

private:
    template <class T> bool readTyped(T* dest, std::uint64_t count) {
        if (count != 1 || reachableBytes() < sizeof(T)) return readElements(dest, sizeof(T), count);
        *dest = bigendian::load<T>(held_);
        held_ += sizeof(T);
        return true;
    }
    std::uint64_t reachableBytes() const { return binio::installedScrambler ? 0 : heldBytes(); }

    template <class T> bool readElements(T* dest, unsigned width, std::uint64_t count);
    template <class T> std::uint64_t takeElements(T* dest, unsigned width, std::uint64_t count);
    bool completeElement(std::uint8_t* element, std::uint64_t have, unsigned width);
    bool decideLength(std::int32_t bits);
};
