// SPDX-License-Identifier: Apache-2.0
// Values in blocks of their own, and bare ones.
#include "zelbasictypes/data/zelfilewrite.h"

#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/data/zelstored.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/math/zelmatrix4.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

template <class T> bool ZelFileWrite::writeBare(T value) {
    if (ZEL_ASSERT(bo_)) bo_->write(&value, 1);
    return true;
}

template <class T>
bool ZelFileWrite::writeBlock(std::uint32_t tag, const T* values, std::uint64_t count) {
    if (!ZEL_ASSERT(bo_)) return true;
    beginBlock(tag, 0);
    bo_->write(values, count);
    return endBlock();
}

bool ZelFileWrite::writeBinary(ZelWritable& object) {
    if (ZEL_ASSERT(bo_)) object.writeBinary(*bo_);
    return true;
}

bool ZelFileWrite::writeModel(ZelWritable& object) {
    object.writeModel(*this);
    return true;
}

bool ZelFileWrite::writeGuid(const ZelGuid& value) {
    if (!ZEL_ASSERT(bo_)) return true;
    beginBlock(zelblock::guid, 0);
    value.write(*bo_);
    return endBlock();
}

bool ZelFileWrite::writeFloatPair(const float value[2]) {
    return writeBlock(zelblock::floatPair, value, 2);
}
bool ZelFileWrite::writeDoublePair(const double value[2]) {
    return writeBlock(zelblock::doublePair, value, 2);
}
bool ZelFileWrite::writeMatrix(const double value[16]) {
    return writeBlock(zelblock::matrix, value, 16);
}
bool ZelFileWrite::writeVector(const double value[3]) {
    return writeBlock(zelblock::vector, value, 3);
}

bool ZelFileWrite::writeWideString(const KorString& value) {
    if (ZEL_ASSERT(bo_)) value.write(*bo_);
    return true;
}

bool ZelFileWrite::writeNarrowString(const KorCString& value) {
    return writeBlock(zelblock::narrowText, value.c_str(),
                      static_cast<std::uint64_t>(value.length()));
}

bool ZelFileWrite::writeDouble(double value) { return writeBare(value); }
bool ZelFileWrite::writeFloat(float value) { return writeBare(value); }
bool ZelFileWrite::writeUnsigned(std::uint32_t value) { return writeBare(value); }
bool ZelFileWrite::writeInt(std::int32_t value) { return writeBare(value); }
bool ZelFileWrite::writeChar(char value) { return writeBare(value); }
bool ZelFileWrite::writeByte(unsigned char value) { return writeBare(value); }

ZelFileWrite& ZelFileWrite::operator<<(const ZelGuid& value) { return writeGuid(value), *this; }
ZelFileWrite& ZelFileWrite::operator<<(const float (&value)[2]) {
    return writeFloatPair(value), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(const double (&value)[2]) {
    return writeDoublePair(value), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(const double (&value)[3]) {
    return writeVector(value), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(const double (&value)[4]) {
    return writeBlock(zelblock::fourDoubles, value, 4), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(const double (&value)[16]) {
    return writeMatrix(value), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(const ZelMatrix4& value) {
    return writeMatrix(value.m), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(const ZelVector3& value) {
    const double numbers[] = {value.x, value.y, value.z};
    return *this << numbers;
}
ZelFileWrite& ZelFileWrite::operator<<(const KorString& value) {
    return writeWideString(value), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(const KorCString& value) {
    return writeNarrowString(value), *this;
}
ZelFileWrite& ZelFileWrite::operator<<(double value) { return writeBare(value), *this; }
ZelFileWrite& ZelFileWrite::operator<<(float value) { return writeBare(value), *this; }
ZelFileWrite& ZelFileWrite::operator<<(std::uint32_t value) { return writeBare(value), *this; }
ZelFileWrite& ZelFileWrite::operator<<(std::int32_t value) { return writeBare(value), *this; }
ZelFileWrite& ZelFileWrite::operator<<(char value) { return writeBare(value), *this; }
ZelFileWrite& ZelFileWrite::operator<<(signed char value) { return writeBare(value), *this; }
ZelFileWrite& ZelFileWrite::operator<<(unsigned char value) { return writeBare(value), *this; }
