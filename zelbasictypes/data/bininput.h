// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinInput: reads typed numbers from a device of bytes.
///
/// Streams report without exceptions. A typed read is true when all of its elements arrived; at the
/// end of the data it is false, while the stream stays good. A stream may be used by one thread at
/// a time. The order of the virtual operations is a contract with other modules.
#pragma once

#include "zelbasictypes/data/bigendian.h"
#include "zelbasictypes/data/binio_scrambler.h"

/// The order of the virtual operations is a contract with other modules.
/// The reading side of typed binary streams. Subclasses supply the device: a file (BinInputFile) or
/// memory (BinInputMemory).
class BinInput {
public:
    /// The size of the stage, the buffer in which numbers are assembled.
    static constexpr std::uint64_t stageBytes = 1024;

    BinInput() = default;
    BinInput(const BinInput&) = delete;
    BinInput& operator=(const BinInput&) = delete;
    virtual ~BinInput() = default;

    /// Reads up to `count` bytes from the device as they are. The number of bytes read: 0 at the
    /// end of the data, on failure and without a device.
    virtual std::uint64_t readRaw(void* buffer, std::uint64_t count) = 0;
    /// The position of the device in bytes; 0 without a device.
    virtual std::int64_t tell() const = 0;
    /// Moves to an offset from the start of the device, or from its end. False only without a
    /// device.
    virtual bool seek(std::int64_t offset, bool fromStart = true) = 0;
    /// Whether a device is open and has had no error.
    virtual bool good() const = 0;
    /// Closes the device; harmless when it is closed already. False when the device reports an
    /// error.
    virtual bool close() = 0;

    /// Reads `count` elements. Those that arrived before the data ended are in `dest`.
    /// @{
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
    /// @}

    /// Reads elements that take `width` bytes each in the stream, 1 to 8. Wider ones are cut to
    /// their low bytes; narrower ones are extended, with their sign when the type is signed. False
    /// for any other width.
    template <class T> bool read(T* dest, unsigned width, std::uint64_t count) {
        return width == sizeof(T) ? readTyped(dest, count) : readElements(dest, width, count);
    }

    /// Reads directly into `buffer`, by one call of the device. The number of bytes read.
    std::uint64_t readBytes(void* buffer, std::uint64_t count);
    /// Reads up to 1024 bytes into the stage. `*staged` points there until the next operation. The
    /// number of bytes read.
    std::uint64_t readStaged(const std::uint8_t** staged, std::uint64_t count);
    /// The signed 32-bit number ahead, which isn't consumed. -1 when there isn't a whole one; the
    /// bytes that there were are then consumed.
    std::int32_t peekInt();

    /// The total length of the source in bytes; 0 when it can't be measured.
    std::uint64_t size() const { return size_; }
    /// The number of bits in a block's length field: 32 or 64, or 0 until a file block has decided
    /// it.
    std::int32_t lengthWidth() const { return lengthWidth_; }
    /// Decides the width of length fields. False, with nothing changed, when it has been decided.
    /// @{
    bool setLength32() { return decideLength(32); }
    bool setLength64() { return decideLength(64); }
    /// @}
    /// Sets the width in any case; 0 makes it undecided again.
    void setLengthWidth(std::int32_t bits) { lengthWidth_ = bits; }

private:
    std::uint8_t buffer_[stageBytes];

protected:
    std::uint64_t size_ = 0; ///< as size(); set by the device

private:
    std::int32_t lengthWidth_ = 0;

protected:
    /// Bytes after the device's position that the device holds in memory, from `held_` up to
    /// `heldEnd_`. A device may leave this empty. Otherwise typed reads take from here without a
    /// call, and `tell` and `readRaw` must account for what is left.
    /// @{
    const std::uint8_t* held_ = nullptr;
    const std::uint8_t* heldEnd_ = nullptr;
    /// @}
    /// The number of held bytes.
    std::uint64_t heldBytes() const { return static_cast<std::uint64_t>(heldEnd_ - held_); }
    /// Moves up to `count` held bytes to `buffer`, and returns their number.
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
