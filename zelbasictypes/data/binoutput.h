// SPDX-License-Identifier: Apache-2.0
/// @file
/// BinOutput: typed numbers into a device of bytes, by way of a stage of 1024 bytes.
///
/// Streams report without exceptions: an operation is false when the device took nothing of what it
/// was given. Bytes wait in the stage until it is full, the position changes or somebody flushes;
/// what is left there when the stream is destroyed is lost. One stream belongs to one thread.
#pragma once

#include "zelbasictypes/data/bigendian.h"
#include "zelbasictypes/data/binio_scrambler.h"

/// The order of the virtual operations is a contract with other modules.
class BinOutput {
public:
    static constexpr std::uint64_t stageBytes = 1024;
    /// Typed writes find at least this much room in the stage, or have it flushed first.
    static constexpr std::uint64_t headroomBytes = 256;

    BinOutput() = default;
    BinOutput(const BinOutput&) = delete;
    BinOutput& operator=(const BinOutput&) = delete;
    virtual ~BinOutput() = default;

    /// Brings everything to the device and as far beyond as the device can; false in this class.
    virtual bool flushDevice() { return false; }
    /// Keeps its place in the order; nothing calls it.
    virtual bool reserved() { return false; }
    /// The number of bytes that the device took; 0 without one. The stage has no part in it.
    virtual std::uint64_t writeRaw(const void* buffer, std::uint64_t count) = 0;
    virtual std::uint64_t readRaw(void* buffer, std::uint64_t count) = 0;
    /// Where the device is, not counting the stage; 0 without one.
    virtual std::int64_t tellRaw() const = 0;
    virtual bool seekRaw(std::int64_t offset, bool fromStart) = 0;
    /// A device is open and has met no error.
    virtual bool good() const = 0;
    /// Harmless when closed already. False when the device complains.
    virtual bool closeRaw() = 0;

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

    /// The low `width` bytes of each element, 1 to 8; where it is wider than the element, signed
    /// integers carry their sign. False for another width.
    template <class T> bool write(const T* source, unsigned width, std::uint64_t count) {
        return width == sizeof(T) ? writeTyped(source, count) : writeElements(source, width, count);
    }

    /// Fills the stage to its last byte; false as soon as the device takes nothing.
    bool writeBytes(const void* source, std::uint64_t count);
    /// Room in the stage for a caller to format into: `*room` points there, the result is how much
    /// of `count` it holds. `commit` then takes over what the caller filled.
    std::uint64_t reserve(std::uint8_t** room, std::uint64_t count);
    bool commit(std::uint64_t count);

    /// Empties the stage onto the device; what the device refuses is lost.
    bool flushBuffer();
    /// From the device, where it stands behind all that was written.
    std::uint64_t readBack(void* buffer, std::uint64_t count);
    std::int64_t tell() const { return tellRaw() + static_cast<std::int64_t>(pending()); }
    bool seek(std::int64_t offset, bool fromStart = true);
    /// False when bytes were lost.
    bool close();

    /// Of the formats that are to be written here; 0 for the newest.
    std::uint32_t version() const { return version_; }
    bool setVersion(std::uint32_t value) {
        version_ = value;
        return true;
    }

protected:
    /// For a device that gathers in memory: unless there is something in the stage, it lies at
    /// `room` from now on, `stageBytes` long, so that what is flushed stands in its place when
    /// `writeRaw` gets it.
    void lendStage(std::uint8_t* room) {
        if (pending() == 0) next_ = stage_ = room;
    }
    /// Ends the lending, before a device uses that memory otherwise; what is in the stage comes
    /// along.
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
