// SPDX-License-Identifier: Apache-2.0
// The word of tag and version in streams.
#include "zelbasictypes/data/binio_magic.h"

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/diagnostics/zelassert.h"

#include <ostream>

bool BinIO_Magic::write(BinOutput& stream) const { return stream.write(&magic_, 1); }

void BinIO_Magic::readExact(BinInput& stream, BinIO_Magic magic) {
    readWord(stream);
    ZEL_ASSERT(magic_ == magic);
}

bool BinIO_Magic::readIs(BinInput& stream, BinIO_Magic expected) {
    return readWord(stream) && *this == expected;
}

bool BinIO_Magic::readSameTag(BinInput& stream) {
    const auto before = static_cast<std::uint32_t>(magic_);
    return readWord(stream) && before >> 8 == static_cast<std::uint32_t>(magic_) >> 8;
}

bool BinIO_Magic::readWord(BinInput& stream) {
    magic_ = -1;
    return stream.read(&magic_, 1);
}

std::ostream& operator<<(std::ostream& stream, const BinIO_Magic& magic) {
    return stream << magic.tag() << ' ' << magic.version();
}
