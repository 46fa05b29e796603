// SPDX-License-Identifier: Apache-2.0
/// @file
/// ZelFileWrite: writes data-model files. docs/formats.md describes the format.
#pragma once

#include "zelbasictypes/data/blockpositions.h"
#include "zelbasictypes/data/izeldatamodelwriter.h"

class BinOutput;
struct ZelMatrix4;
struct ZelVector3;

/// Writes to a file of its own or to a borrowed stream.
///
/// The version decides the width of lengths: 1 to 9 make a narrow file, whose blocks must stay
/// below 4 GiB; 0 and 10 up make a wide one. Don't change it while a block is open, or the length
/// overwrites content. A block gets its length when it ends, so that a block that never ends has
/// length 0.
///
/// Calling an operation without a stream fails an assertion and does nothing else. One thread at a
/// time may use a writer.
class ZelFileWrite : public IZelDataModelWriter {
public:
    static constexpr const char* interfaceName = "ZelFileWrite";

    /// A writer without a stream. The destructor closes the file that create() makes.
    ZelFileWrite() = default;
    /// Writes to `stream`, which stays the caller's. With `closeOnEnd`, destroying the writer or
    /// attaching another stream ends all open blocks and flushes; without it, they only end the
    /// blocks.
    explicit ZelFileWrite(BinOutput* stream, bool closeOnEnd = false);
    ZelFileWrite(const ZelFileWrite&) = delete;
    ZelFileWrite& operator=(const ZelFileWrite&) = delete;

    bool writeBinary(ZelWritable& object) override;
    bool writeModel(ZelWritable& object) override;
    bool writeGuid(const ZelGuid& value) override;
    bool writeFloatPair(const float value[2]) override;
    bool writeDoublePair(const double value[2]) override;
    bool writeMatrix(const double value[16]) override;
    bool writeVector(const double value[3]) override;
    bool writeWideString(const KorString& value) override;
    bool writeNarrowString(const KorCString& value) override;
    bool writeDouble(double value) override;
    bool writeFloat(float value) override;
    bool writeUnsigned(std::uint32_t value) override;
    bool writeInt(std::int32_t value) override;
    bool writeChar(char value) override;
    bool writeByte(unsigned char value) override;
    bool beginObject(ZelIdentified& object, std::uint32_t version) override;
    bool endObject() override;
    bool beginNamed(const KorString& name) override;
    bool endNamed() override;
    bool beginGuidBlock(const ZelGuid& guid, std::uint32_t version) override;
    bool beginBlock(std::uint32_t tag, std::uint32_t version) override;
    /// Does nothing when no block is open.
    bool endBlock() override;
    bool good() override;
    /// A new stream on the file, owned by the caller. A subclass may make another kind.
    virtual BinOutput* createOutput(const KorString& path);

    ~ZelFileWrite() override;
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return interfaceName; }

    /// As the operation for that type. Four doubles have no other operation.
    /// @{
    ZelFileWrite& operator<<(const ZelGuid& value);
    ZelFileWrite& operator<<(const float (&value)[2]);
    ZelFileWrite& operator<<(const double (&value)[2]);
    ZelFileWrite& operator<<(const double (&value)[3]);
    ZelFileWrite& operator<<(const double (&value)[4]);
    ZelFileWrite& operator<<(const double (&value)[16]);
    ZelFileWrite& operator<<(const ZelVector3& value);
    ZelFileWrite& operator<<(const ZelMatrix4& value);
    ZelFileWrite& operator<<(const KorString& value);
    ZelFileWrite& operator<<(const KorCString& value);
    ZelFileWrite& operator<<(double value);
    ZelFileWrite& operator<<(float value);
    ZelFileWrite& operator<<(std::uint32_t value);
    ZelFileWrite& operator<<(std::int32_t value);
    ZelFileWrite& operator<<(char value);
    ZelFileWrite& operator<<(signed char value);
    ZelFileWrite& operator<<(unsigned char value);
    /// @}

    /// Makes the file and opens its file block. False when it can't be made.
    bool create(const KorString& path);
    /// Opens the file block of the attached stream.
    bool writeFileHeader();
    /// Ends what is open on the previous stream and starts again; null is none. Always true.
    bool attach(BinOutput* stream, bool closeOnEnd = false);
    /// Ends the innermost block, flushes with `closeOnEnd`, and closes a file of its own. True when
    /// everything has gone well to the end.
    bool close();
    /// Makes the writer not good.
    void fail() { good_ = false; }
    /// Sets the version of this writer and its stream. Always true.
    bool setVersion(std::uint32_t value);
    /// The stream, borrowed.
    BinOutput* stream();

private:
    bool isWide() const { return version_ == 0 || version_ >= 10; }
    template <class T> bool writeBare(T value);
    template <class T> bool writeBlock(std::uint32_t tag, const T* values, std::uint64_t count);
    void writeLength(std::uint64_t length);

    BlockPositions end_{2};
    std::int32_t depth_ = 0;
    BinOutput* bo_ = nullptr;
    bool ownsStream_ = false;
    bool good_ = true;
    bool closeOnEnd_ = true;
    std::uint32_t version_ = 0;
};
