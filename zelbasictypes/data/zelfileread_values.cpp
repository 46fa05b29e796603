// SPDX-License-Identifier: Apache-2.0
// Values in blocks of their own, and bare ones.
#include "zelbasictypes/data/zelfileread.h"

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/data/zelstored.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/math/zelmatrix4.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

template <class T> bool ZelFileRead::readBare(T& value) {
    if (ZEL_ASSERT(bi_)) bi_->read(&value, 1);
    return true;
}

void ZelFileRead::beginValue(std::uint32_t tag) {
    if (beginBlock() && tag_ != tag) good_ = false;
}

/// The values are read also when the block is another: a caller finds out at the end.
template <class T> bool ZelFileRead::readBlock(std::uint32_t tag, T* values, std::uint64_t count) {
    if (!ZEL_ASSERT(bi_)) return true;
    beginValue(tag);
    bi_->read(values, count);
    return endBlock();
}

bool ZelFileRead::readBinary(ZelReadable& object) {
    if (ZEL_ASSERT(bi_)) object.readBinary(*bi_);
    return true;
}

bool ZelFileRead::readModel(ZelReadable& object) {
    object.readModel(*this);
    return true;
}

bool ZelFileRead::readGuid(ZelGuid& value) {
    if (!ZEL_ASSERT(bi_)) return true;
    beginValue(zelblock::guid);
    value.read(*bi_);
    return endBlock();
}

bool ZelFileRead::readFloatPair(float value[2]) { return readBlock(zelblock::floatPair, value, 2); }
bool ZelFileRead::readDoublePair(double value[2]) {
    return readBlock(zelblock::doublePair, value, 2);
}
bool ZelFileRead::readMatrix(double value[16]) { return readBlock(zelblock::matrix, value, 16); }
bool ZelFileRead::readVector(double value[3]) { return readBlock(zelblock::vector, value, 3); }

bool ZelFileRead::readWideString(KorString& value) {
    if (ZEL_ASSERT(bi_)) value.read(*bi_);
    return true;
}

bool ZelFileRead::readNarrowString(KorCString& value) {
    if (!ZEL_ASSERT(bi_)) return true;
    beginValue(zelblock::narrowText);
    if (good() && !value.readBytes(*bi_, bytesLeftInBlock())) good_ = false;
    return endBlock();
}

bool ZelFileRead::readDouble(double& value) { return readBare(value); }
bool ZelFileRead::readFloat(float& value) { return readBare(value); }
bool ZelFileRead::readUnsigned(std::uint32_t& value) { return readBare(value); }
bool ZelFileRead::readInt(std::int32_t& value) { return readBare(value); }
bool ZelFileRead::readChar(char& value) { return readBare(value); }
bool ZelFileRead::readByte(unsigned char& value) { return readBare(value); }

ZelFileRead& ZelFileRead::operator>>(ZelGuid& value) { return readGuid(value), *this; }
ZelFileRead& ZelFileRead::operator>>(float (&value)[2]) { return readFloatPair(value), *this; }
ZelFileRead& ZelFileRead::operator>>(double (&value)[2]) { return readDoublePair(value), *this; }
ZelFileRead& ZelFileRead::operator>>(double (&value)[3]) { return readVector(value), *this; }
ZelFileRead& ZelFileRead::operator>>(double (&value)[4]) {
    return readBlock(zelblock::fourDoubles, value, 4), *this;
}
ZelFileRead& ZelFileRead::operator>>(double (&value)[16]) { return readMatrix(value), *this; }
ZelFileRead& ZelFileRead::operator>>(ZelMatrix4& value) { return readMatrix(value.m), *this; }
ZelFileRead& ZelFileRead::operator>>(ZelVector3& value) {
    double numbers[] = {value.x, value.y, value.z};
    readVector(numbers);
    value = {numbers[0], numbers[1], numbers[2]};
    return *this;
}
ZelFileRead& ZelFileRead::operator>>(KorString& value) { return readWideString(value), *this; }
ZelFileRead& ZelFileRead::operator>>(KorCString& value) { return readNarrowString(value), *this; }
ZelFileRead& ZelFileRead::operator>>(double& value) { return readBare(value), *this; }
ZelFileRead& ZelFileRead::operator>>(float& value) { return readBare(value), *this; }
ZelFileRead& ZelFileRead::operator>>(std::uint32_t& value) { return readBare(value), *this; }
ZelFileRead& ZelFileRead::operator>>(std::int32_t& value) { return readBare(value), *this; }
ZelFileRead& ZelFileRead::operator>>(char& value) { return readBare(value), *this; }
ZelFileRead& ZelFileRead::operator>>(signed char& value) { return readBare(value), *this; }
ZelFileRead& ZelFileRead::operator>>(unsigned char& value) { return readBare(value), *this; }
