// SPDX-License-Identifier: Apache-2.0
// Looks at what is ahead and leaves it there.
#include "zelbasictypes/data/zelfileread.h"

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korstring.h"

#include <utility>

namespace {

/// Puts the stream back where it was.
class Glance {
public:
    explicit Glance(BinInput& stream) : stream_(stream), position_(stream.tell()) {}
    Glance(const Glance&) = delete;
    Glance& operator=(const Glance&) = delete;
    ~Glance() { stream_.seek(position_, true); }

private:
    BinInput& stream_;
    std::int64_t position_;
};

} // namespace

std::uint32_t ZelFileRead::peekTag() {
    constexpr std::uint32_t nothing = 0xFFFFFF;
    if (!ZEL_ASSERT(bi_)) return nothing;
    return static_cast<std::uint32_t>(bi_->peekInt()) >> 8;
}

const ZelGuid* ZelFileRead::peekGuid() {
    delete std::exchange(peekedGuid_, zelNew<ZelGuid>());
    if (!ZEL_ASSERT(bi_)) return peekedGuid_;
    const Glance glance(*bi_);
    readHeader(false);
    peekedGuid_->read(*bi_);
    return peekedGuid_;
}

const KorString* ZelFileRead::peekName() {
    delete std::exchange(peekedName_, zelNew<KorString>());
    if (!ZEL_ASSERT(bi_)) return peekedName_;
    const Glance glance(*bi_);
    readWideString(*peekedName_);
    return peekedName_;
}

bool ZelFileRead::isNextBlock(std::uint32_t tag, std::int32_t* version) {
    if (version) *version = -1;
    if (!ZEL_ASSERT(bi_)) return false;
    const Glance glance(*bi_);
    std::uint32_t word = 0;
    if (!bi_->read(&word, 1) || word >> 8 != tag) return false;
    if (version) *version = static_cast<std::int32_t>(word & 0xFF);
    return true;
}

bool ZelFileRead::isNextObject(const ZelGuid& guid, std::int32_t* version) {
    if (version) *version = -1;
    if (!ZEL_ASSERT(bi_)) return false;
    const Glance glance(*bi_);
    const Header header = readHeader(false);
    ZelGuid found;
    if (!good() || header.tag != zelblock::object || endOf(header) < 0) return false;
    if (!found.read(*bi_) || found != guid) return false;
    if (version) *version = static_cast<std::int32_t>(header.version);
    return true;
}
