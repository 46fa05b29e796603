// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinOutput: writes typed numbers to a device of bytes, by way of a stage of 1024 bytes.
///
/// Streams report without exceptions: an operation is false when the device took nothing of what it
/// was given. Bytes wait in the stage until it is full, the position changes or somebody flushes.
/// What is left in the stage when the stream is destroyed is lost. A stream may be used by one
/// thread at a time. The order of the virtual operations is a contract with other modules.
#pragma once

#include "zelbasictypes/data/bigendian.h"
#include "zelbasictypes/data/binio_scrambler.h"

/// The order of the virtual operations is a contract with other modules.
/// The writing side of typed binary streams. Subclasses supply the device: a file (BinOutputFile)
/// or memory (BinOutputMemory).
class BinOutput {
public:
    /// The size of the stage.
    static constexpr std::uint64_t stageBytes = 1024;
    /// A typed write flushes the stage first unless it has at least this much room.
    static constexpr std::uint64_t headroomBytes = 256;

    BinOutput() = default;
    BinOutput(const BinOutput&) = delete;
    BinOutput& operator=(const BinOutput&) = delete;
    virtual ~BinOutput() = default;

    /// Passes everything to the device, and on from there as far as the device can. Always false in
    /// this class.
    virtual bool flushDevice() { return false; }
    /// Reserved; nothing calls it.
    virtual bool reserved() { return false; }
    /// Transfers bytes directly, past the stage. The number of bytes transferred; 0 without a
    /// device.
    /// @{
    virtual std::uint64_t writeRaw(const void* buffer, std::uint64_t count) = 0;
    virtual std::uint64_t readRaw(void* buffer, std::uint64_t count) = 0;
    /// @}
    /// The position of the device, without the stage; 0 without a device.
    virtual std::int64_t tellRaw() const = 0;
    /// Moves the device to an offset from its start, or from its end.
    virtual bool seekRaw(std::int64_t offset, bool fromStart) = 0;
    /// Whether a device is open and has had no error.
    virtual bool good() const = 0;
    /// Closes the device; harmless when it is closed already. False when the device reports an
    /// error.
    virtual bool closeRaw() = 0;

    /// Writes `count` elements.
    /// @{
    bool write(const char* source, std::uint64_t count) { return writeTyped(source, count); }
    bool write(const signed char* source, std::uint64_t count) { return writeTyped(source, count); }
    bool write(const unsigned char* source, std::uint64_t count) {
        return writeTyped(source, count);
    }
    bool write(const std::int16_t* source, std::uint64_t count) {
        return writeTyped(source, count);
    }
    bool write(const std::uint16_t* source, std::uint64_t count) {
        return writeTyped(source, count);
    }
    bool write(const char16_t* source, std::uint64_t count) { return writeTyped(source, count); }
    bool write(const std::int32_t* source, std::uint64_t count) {
        return writeTyped(source, count);
    }
    bool write(const std::uint32_t* source, std::uint64_t count) {
        return writeTyped(source, count);
    }
    bool write(const std::int64_t* source, std::uint64_t count) {
        return writeTyped(source, count);
    }
    bool write(const std::uint64_t* source, std::uint64_t count) {
        return writeTyped(source, count);
    }
    bool write(const float* source, std::uint64_t count) { return writeTyped(source, count); }
    bool write(const double* source, std::uint64_t count) { return writeTyped(source, count); }
    /// @}

    /// Writes the low `width` bytes of each element, 1 to 8. Elements are extended when they are
    /// narrower, signed integers with their sign. False for any other width.
    template <class T> bool write(const T* source, unsigned width, std::uint64_t count) {
        return width == sizeof(T) ? writeTyped(source, count) : writeElements(source, width, count);
    }

    /// Writes bytes as they are and fills the stage to its last byte. False as soon as the device
    /// takes nothing.
    bool writeBytes(const void* source, std::uint64_t count);
    /// Lends room in the stage for the caller to fill. `*room` points there; the result is how many
    /// of `count` bytes it holds. `commit` then takes over what the caller has filled.
    /// @{
    std::uint64_t reserve(std::uint8_t** room, std::uint64_t count);
    bool commit(std::uint64_t count);
    /// @}

    /// Passes the stage to the device. What the device refuses is lost.
    bool flushBuffer();
    /// Reads from the device, after everything that was written. The number of bytes read.
    std::uint64_t readBack(void* buffer, std::uint64_t count);
    /// The position of the stream, including the stage.
    std::int64_t tell() const { return tellRaw() + static_cast<std::int64_t>(pending()); }
    /// Flushes the stage and moves to an offset from the start of the device, or from its end.
    bool seek(std::int64_t offset, bool fromStart = true);
    /// Flushes the stage and closes the device. False when bytes were lost.
    bool close();

    /// The version of the formats to be written; 0 for the newest.
    /// @{
    std::uint32_t version() const { return version_; }
    bool setVersion(std::uint32_t value) {
        version_ = value;
        return true;
    }
    /// @}

protected:
    /// For a device that gathers bytes in memory. Unless the stage holds something, it is moved to
    /// `room`, which has `stageBytes` bytes; what is flushed is then in place already when
    /// `writeRaw` receives it.
    void lendStage(std::uint8_t* room) {
        if (pending() == 0) next_ = stage_ = room;
    }
    /// Moves the stage and its content back, before a device uses that memory otherwise.
    void takeStageBack();

private:
    std::uint64_t pending() const { return static_cast<std::uint64_t>(next_ - stage_); }
    std::uint64_t room() const { return stageBytes - pending(); }

    template <class T> bool writeTyped(const T* source, std::uint64_t count) {
        if (count != 1 || room() < headroomBytes) return writeElements(source, sizeof(T), count);
        bigendian::store<T>(next_, *source);
        next_ += sizeof(T);
        return true;
    }

    template <class T> bool writeElements(const T* source, unsigned width, std::uint64_t count);
    void makeHeadroom() {
        if (room() < headroomBytes) flushBuffer();
    }

    std::uint8_t buffer_[stageBytes];
    /// Where the stage lies: in `buffer_`, or where a device has lent it room.
    std::uint8_t* stage_ = buffer_;
    std::uint8_t* next_ = buffer_;
    std::uint32_t version_ = 0;
};
