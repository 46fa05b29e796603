// SPDX-License-Identifier: Apache-2.0
// Streams, blocks and their lengths on the reading side.
#include "zelbasictypes/data/zelfileread.h"

#include "component/objects/queryinterface.h"
#include "platform/file.h"
#include "zelbasictypes/data/bininputfile.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korstring.h"

#include <algorithm>
#include <utility>

ZelFileRead::~ZelFileRead() {
    if (ownsStream_) close();
    delete blockGuid_;
    delete peekedGuid_;
    delete peekedName_;
}

void ZelFileRead::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelDataModelReader>(this, interfaceName, name, result);
}

BinInput* ZelFileRead::createInput(const KorString& path) { return zelNew<BinInputFile>(path); }

bool ZelFileRead::open(const KorString& path) {
    if (!ZEL_ASSERT(!bi_)) return false;
    constexpr std::int32_t mayBeRead = 4;
    if (platform::access(path.c_str(), mayBeRead) != 0) return false;
    bi_ = createInput(path);
    if (!bi_->good()) {
        delete std::exchange(bi_, nullptr);
        return false;
    }
    good_ = ownsStream_ = true;
    checkFileHeader();
    return true;
}

bool ZelFileRead::checkFileHeader() {
    constexpr std::uint32_t knownVersions = 2;
    good_ = beginBlock() && tag_ == zelblock::file && version_ < knownVersions;
    return good();
}

bool ZelFileRead::attach(BinInput* stream) {
    if (stream == bi_) return true;
    delete std::exchange(blockGuid_, nullptr);
    dropStream();
    depth_ = 0;
    bi_ = stream;
    good_ = true;
    return true;
}

bool ZelFileRead::close() {
    if (!bi_) return false;
    endBlock();
    const bool wasGood = good();
    dropStream();
    depth_ = 0;
    good_ = false;
    return wasGood;
}

void ZelFileRead::dropStream() {
    if (ownsStream_) {
        bi_->close();
        delete bi_;
    }
    bi_ = nullptr;
    ownsStream_ = false;
}

bool ZelFileRead::good() { return good_ && bi_ && bi_->good(); }

BinInput* ZelFileRead::stream() {
    ZEL_ASSERT(bi_);
    return bi_;
}

ZelFileRead::Header ZelFileRead::readHeader(bool decidesWidth) {
    Header header{};
    header.start = bi_->tell();
    std::uint32_t word = 0;
    bi_->read(&word, 1);
    header.tag = word >> 8;
    header.version = word & 0xFF;
    if (decidesWidth && header.tag == zelblock::file) {
        static_cast<void>(header.version == 0 ? bi_->setLength32() : bi_->setLength64());
    }
    header.bytes = readLength(header.length);
    return header;
}

std::uint32_t ZelFileRead::readLength(std::uint64_t& length) {
    if (bi_->lengthWidth() == 64) {
        bi_->read(&length, 1);
        return zelblock::wideHeader;
    }
    std::uint32_t narrow = 0;
    bi_->read(&narrow, 1);
    length = narrow;
    return zelblock::narrowHeader;
}

/// A file block without a length reaches to the end of the source, which only one at its start can.
std::int64_t ZelFileRead::endOf(const Header& header) const {
    const std::uint64_t size = bi_->size();
    const auto start = static_cast<std::uint64_t>(header.start);
    const bool unclosed = header.tag == zelblock::file && header.length == 0;
    const std::uint64_t length = unclosed ? size : header.length;
    if (header.start < 0 || start > size || length < header.bytes || length > size - start) {
        return -1;
    }
    return static_cast<std::int64_t>(start + length);
}

bool ZelFileRead::enter(const Header& header) {
    tag_ = header.tag;
    version_ = header.version;
    const std::int64_t end = endOf(header);
    if (!good() || end < 0) return false;
    if (tag_ == zelblock::object) {
        if (!blockGuid_) blockGuid_ = zelNew<ZelGuid>();
        if (!blockGuid_->read(*bi_)) return false;
    }
    end_.set(++depth_, end);
    return true;
}

bool ZelFileRead::beginBlock() {
    if (!ZEL_ASSERT(bi_)) return false;
    const Header header = readHeader(true);
    if (enter(header)) return true;
    bi_->seek(header.start, true);
    good_ = false;
    return false;
}

bool ZelFileRead::atBlockEnd() { return !good_ || bytesLeftInBlock() == 0; }

bool ZelFileRead::endBlock() {
    if (depth_ < 1 && good_) zelAssertFail("end_.size() > 0 || !good_", __FILE__, __LINE__);
    if (depth_ < 1) return true;
    if (good_) bi_->seek(end_.at(depth_), true);
    --depth_;
    good_ = good();
    return true;
}

std::int64_t ZelFileRead::bytesLeftInBlock() {
    if (!good_ || !bi_) return 0;
    return std::max<std::int64_t>(end_.at(depth_) - bi_->tell(), 0);
}

bool ZelFileRead::expectBlock(std::uint32_t tag) {
    if (!beginBlock()) return false;
    if (tag_ != tag) good_ = false;
    return good();
}

bool ZelFileRead::expectBlock(std::uint32_t tag, std::uint32_t maxVersion) {
    if (!expectBlock(tag)) return false;
    if (version_ > maxVersion) good_ = false;
    return good();
}

bool ZelFileRead::skipBlock() {
    beginBlock();
    endBlock();
    return good();
}

const ZelGuid* ZelFileRead::currentGuid() {
    if (!blockGuid_) blockGuid_ = zelNew<ZelGuid>();
    return blockGuid_;
}

bool ZelFileRead::beginObject(const void*, std::uint32_t& version) {
    const bool entered = beginBlock();
    version = version_;
    if (tag_ != zelblock::object) good_ = false;
    return entered && good_;
}

bool ZelFileRead::endObject() { return endBlock(); }

bool ZelFileRead::beginNamed(const void*, ZelGuid& guid) {
    if (!ZEL_ASSERT(bi_)) return false;
    KorString name;
    readWideString(name);
    guid = *peekGuid();
    return true;
}

bool ZelFileRead::endNamed() { return true; }
