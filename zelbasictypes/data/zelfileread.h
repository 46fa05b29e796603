// SPDX-License-Identifier: Apache-2.0
/// @file
/// ZelFileRead: reads data-model files. docs/formats.md describes the format.
#pragma once

#include "zelbasictypes/data/blockpositions.h"
#include "zelbasictypes/data/izeldatamodelreader.h"

class BinInput;
struct ZelMatrix4;
struct ZelVector3;

/// Reads a file of its own or a borrowed stream. After the first error the reader isn't good until
/// it gets another stream: values are then still read from wherever the stream is, no block can be
/// entered, and `endBlock` only counts. Calling an operation without a stream fails an assertion
/// and does nothing else. One thread at a time may use a reader.
class ZelFileRead : public IZelDataModelReader {
public:
    static constexpr const char* interfaceName = "ZelFileRead";

    ZelFileRead() = default;
    /// Reads from `stream`, which stays the caller's and must outlive its use here.
    explicit ZelFileRead(BinInput* stream) : bi_(stream), good_(true) {}
    ZelFileRead(const ZelFileRead&) = delete;
    ZelFileRead& operator=(const ZelFileRead&) = delete;

    bool readBinary(ZelReadable& object) override;
    bool readModel(ZelReadable& object) override;
    bool readGuid(ZelGuid& value) override;
    bool readFloatPair(float value[2]) override;
    bool readDoublePair(double value[2]) override;
    bool readMatrix(double value[16]) override;
    bool readVector(double value[3]) override;
    /// A block of another kind leaves the text empty and the reader good.
    bool readWideString(KorString& value) override;
    bool readNarrowString(KorCString& value) override;
    bool readDouble(double& value) override;
    bool readFloat(float& value) override;
    bool readUnsigned(std::uint32_t& value) override;
    bool readInt(std::int32_t& value) override;
    bool readChar(char& value) override;
    bool readByte(unsigned char& value) override;
    const ZelGuid* peekGuid() override;
    bool beginObject(const void* object, std::uint32_t& version) override;
    bool endObject() override;
    const KorString* peekName() override;
    bool beginNamed(const void* object, ZelGuid& guid) override;
    bool endNamed() override;
    bool beginBlock() override;
    bool atBlockEnd() override;
    bool endBlock() override;
    std::uint32_t blockTag() override { return tag_; }
    std::uint32_t blockVersion() override { return version_; }
    const ZelGuid* currentGuid() override;
    bool good() override;
    std::uint32_t peekTag() override;
    /// A new stream on the file, owned by the caller. A subclass may make another kind.
    virtual BinInput* createInput(const KorString& path);

    ~ZelFileRead() override;
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return interfaceName; }

    /// As the operation for that type. Four doubles have no other operation.
    /// @{
    ZelFileRead& operator>>(ZelGuid& value);
    ZelFileRead& operator>>(float (&value)[2]);
    ZelFileRead& operator>>(double (&value)[2]);
    ZelFileRead& operator>>(double (&value)[3]);
    ZelFileRead& operator>>(double (&value)[4]);
    ZelFileRead& operator>>(double (&value)[16]);
    ZelFileRead& operator>>(ZelVector3& value);
    ZelFileRead& operator>>(ZelMatrix4& value);
    ZelFileRead& operator>>(KorString& value);
    ZelFileRead& operator>>(KorCString& value);
    ZelFileRead& operator>>(double& value);
    ZelFileRead& operator>>(float& value);
    ZelFileRead& operator>>(std::uint32_t& value);
    ZelFileRead& operator>>(std::int32_t& value);
    ZelFileRead& operator>>(char& value);
    ZelFileRead& operator>>(signed char& value);
    ZelFileRead& operator>>(unsigned char& value);
    /// @}

    /// Opens a file and enters its file block. True when the file could be opened; `good` then
    /// tells whether it is a data-model file.
    bool open(const KorString& path);
    /// Enters the file block of the attached stream. The result is `good`.
    bool checkFileHeader();
    /// Starts again on a stream that stays the caller's; null is none. Always true.
    bool attach(BinInput* stream);
    /// Leaves the innermost block, and closes and deletes a stream of its own. The result is what
    /// `good` was before.
    bool close();
    /// Enters the block ahead. The reader isn't good any more when the tag is another or the
    /// version is greater.
    /// @{
    bool expectBlock(std::uint32_t tag);
    bool expectBlock(std::uint32_t tag, std::uint32_t maxVersion);
    /// @}
    /// Skips the block ahead. The result is `good`.
    bool skipBlock();
    /// Whether the block ahead, which isn't consumed, has that tag. `version`, if given, receives
    /// the block's version, or -1.
    bool isNextBlock(std::uint32_t tag, std::int32_t* version = nullptr);
    /// The same for a complete object block with that identifier.
    bool isNextObject(const ZelGuid& guid, std::int32_t* version = nullptr);
    /// The bytes up to the end of the innermost block; never negative.
    std::int64_t bytesLeftInBlock();
    /// Makes the reader not good.
    void fail() { good_ = false; }
    /// The stream, borrowed.
    BinInput* stream();
    /// Whether there is a stream.
    bool hasStream() const { return bi_; }
    /// Makes room for at least `min` nested blocks, and for `max` if memory allows.
    void reserveDepth(std::int32_t min, std::int32_t max) { end_.reserve(min, max); }

private:
    struct Header {
        std::uint32_t tag, version;
        std::int64_t start;
        std::uint64_t length;
        std::uint32_t bytes; ///< of the header itself
    };

    template <class T> bool readBare(T& value);
    template <class T> bool readBlock(std::uint32_t tag, T* values, std::uint64_t count);
    void beginValue(std::uint32_t tag);
    /// A file block decides the width of lengths, unless it is only looked at.
    Header readHeader(bool decidesWidth);
    /// The bytes of the whole header.
    std::uint32_t readLength(std::uint64_t& length);
    /// Where the block ends; -1 when its length can't be.
    std::int64_t endOf(const Header& header) const;
    bool enter(const Header& header);
    void dropStream();

    BlockPositions end_{3};
    std::int32_t depth_ = 0;
    BinInput* bi_ = nullptr;
    std::uint32_t tag_ = 0;
    std::uint32_t version_ = 0;
    ZelGuid* blockGuid_ = nullptr;
    bool good_ = false;
    bool ownsStream_ = false;
    ZelGuid* peekedGuid_ = nullptr;
    KorString* peekedName_ = nullptr;
};
