// SPDX-License-Identifier: Apache-2.0
// Streams, blocks and their lengths on the writing side.
#include "zelbasictypes/data/zelfilewrite.h"

#include "component/objects/queryinterface.h"
#include "zelbasictypes/data/binoutputfile.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/data/zelstored.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korstring.h"

#include <utility>

ZelFileWrite::ZelFileWrite(BinOutput* stream, bool closeOnEnd)
    : bo_(stream), closeOnEnd_(closeOnEnd), version_(stream ? stream->version() : 0) {}

ZelFileWrite::~ZelFileWrite() { attach(nullptr); }

void ZelFileWrite::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelDataModelWriter>(this, interfaceName, name, result);
}

BinOutput* ZelFileWrite::createOutput(const KorString& path) { return zelNew<BinOutputFile>(path); }

bool ZelFileWrite::create(const KorString& path) {
    if (!ZEL_ASSERT(!bo_)) return false;
    bo_ = createOutput(path);
    bo_->setVersion(version_);
    if (!bo_->good()) {
        delete std::exchange(bo_, nullptr);
        return false;
    }
    ownsStream_ = closeOnEnd_ = good_ = true;
    writeFileHeader();
    return true;
}

bool ZelFileWrite::writeFileHeader() { return beginBlock(zelblock::file, isWide() ? 1 : 0); }

bool ZelFileWrite::attach(BinOutput* stream, bool closeOnEnd) {
    if (stream == bo_) return true;
    while (bo_ && depth_ > (closeOnEnd_ ? 1 : 0)) endBlock();
    if (closeOnEnd_) close();
    bo_ = stream;
    ownsStream_ = false;
    good_ = true;
    closeOnEnd_ = closeOnEnd;
    depth_ = 0;
    if (stream) version_ = stream->version();
    return true;
}

bool ZelFileWrite::close() {
    if (!bo_) return false;
    endBlock();
    bool wentWell = good();
    if (closeOnEnd_) wentWell = bo_->flushDevice() && wentWell;
    if (ownsStream_) {
        wentWell = bo_->close() && wentWell;
        delete bo_;
    }
    bo_ = nullptr;
    ownsStream_ = false;
    depth_ = 0;
    return wentWell;
}

bool ZelFileWrite::good() { return good_ && bo_ && bo_->good(); }

bool ZelFileWrite::setVersion(std::uint32_t value) {
    version_ = value;
    if (bo_) bo_->setVersion(value);
    return true;
}

BinOutput* ZelFileWrite::stream() {
    ZEL_ASSERT(bo_);
    return bo_;
}

bool ZelFileWrite::beginBlock(std::uint32_t tag, std::uint32_t version) {
    if (!ZEL_ASSERT(bo_)) return true;
    const std::int64_t start = bo_->tell();
    const auto word = static_cast<std::int32_t>(tag << 8 | version);
    bo_->write(&word, 1);
    end_.set(++depth_, start);
    writeLength(0);
    return true;
}

bool ZelFileWrite::endBlock() {
    if (!ZEL_ASSERT(bo_) || depth_ < 1) return true;
    const std::int64_t position = bo_->tell();
    const std::int64_t start = end_.at(depth_);
    bo_->seek(start + 4, true);
    writeLength(static_cast<std::uint64_t>(position - start));
    bo_->seek(position, true);
    --depth_;
    return true;
}

void ZelFileWrite::writeLength(std::uint64_t length) {
    if (isWide()) {
        bo_->write(&length, 1);
        return;
    }
    constexpr std::uint64_t longest = 0xFFFFFFFF;
    if (length > longest) good_ = false;
    const auto narrow = static_cast<std::uint32_t>(length > longest ? longest : length);
    bo_->write(&narrow, 1);
}

bool ZelFileWrite::beginGuidBlock(const ZelGuid& guid, std::uint32_t version) {
    if (!ZEL_ASSERT(bo_)) return true;
    beginBlock(zelblock::object, version);
    guid.write(*bo_);
    return true;
}

bool ZelFileWrite::beginObject(ZelIdentified& object, std::uint32_t version) {
    return beginGuidBlock(object.classGuid(), version);
}

bool ZelFileWrite::endObject() { return endBlock(); }

bool ZelFileWrite::beginNamed(const KorString& name) { return writeWideString(name); }

bool ZelFileWrite::endNamed() { return true; }
