// SPDX-License-Identifier: Apache-2.0
// The order of virtual operations, which other modules are compiled against. A pointer to a virtual
// member holds, where the ABI is that of GCC and Clang on x86-64, its place in the table.
#include "component/objects/services/izeldatareceiver.h"
#include "component/objects/services/izeltranslatorservice.h"
#include "zelbasictypes/data/binio.h"
#include "zelbasictypes/data/zelfile.h"
#include "zelbasictypes/text/zeltrivialtranslator.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

template <class Member> std::ptrdiff_t slotOf(Member member) {
    std::ptrdiff_t representation = 0;
    std::memcpy(&representation, &member, sizeof representation);
    return (representation - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

/// Expects one place behind the other from `first` on.
template <class... Members> void expectOrder(std::ptrdiff_t first, Members... members) {
    for (const std::ptrdiff_t slot : {slotOf(members)...}) EXPECT_EQ(slot, first++);
}

#if defined(__GNUC__) && defined(__x86_64__)

constexpr std::ptrdiff_t behindDestructor = 2; // which takes two places
/// With a virtual base, an interface's own destructor stands behind its operations in this ABI.
constexpr std::ptrdiff_t destructor = 2;

TEST(Slots, OfStreamsKeepTheirOrder) {
    expectOrder(behindDestructor, &BinInput::readRaw, &BinInput::tell, &BinInput::seek,
                &BinInput::good, &BinInput::close);
    expectOrder(behindDestructor, &BinOutput::flushDevice, &BinOutput::reserved,
                &BinOutput::writeRaw, &BinOutput::readRaw, &BinOutput::tellRaw, &BinOutput::seekRaw,
                &BinOutput::good, &BinOutput::closeRaw);
    expectOrder(behindDestructor, &BinIO_Scrambler::scramble, &BinIO_Scrambler::unscramble);
}

TEST(Slots, OfReadersKeepTheirOrder) {
    using R = IZelDataModelReader;
    expectOrder(0, &R::readBinary, &R::readModel, &R::readGuid, &R::readFloatPair,
                &R::readDoublePair, &R::readMatrix, &R::readVector, &R::readWideString,
                &R::readNarrowString, &R::readDouble, &R::readFloat, &R::readUnsigned, &R::readInt,
                &R::readChar, &R::readByte, &R::peekGuid, &R::beginObject, &R::endObject,
                &R::peekName, &R::beginNamed, &R::endNamed, &R::beginBlock, &R::atBlockEnd,
                &R::endBlock, &R::blockTag, &R::blockVersion, &R::currentGuid, &R::good,
                &R::peekTag);
    EXPECT_EQ(slotOf(&ZelFileRead::createInput), 29 + destructor);
    EXPECT_EQ(slotOf(&ZelReadable::readBinary), 0);
    EXPECT_EQ(slotOf(&ZelReadable::readModel), 1);
}

TEST(Slots, OfWritersKeepTheirOrder) {
    using W = IZelDataModelWriter;
    expectOrder(0, &W::writeBinary, &W::writeModel, &W::writeGuid, &W::writeFloatPair,
                &W::writeDoublePair, &W::writeMatrix, &W::writeVector, &W::writeWideString,
                &W::writeNarrowString, &W::writeDouble, &W::writeFloat, &W::writeUnsigned,
                &W::writeInt, &W::writeChar, &W::writeByte, &W::beginObject, &W::endObject,
                &W::beginNamed, &W::endNamed, &W::beginGuidBlock, &W::beginBlock, &W::endBlock,
                &W::good);
    EXPECT_EQ(slotOf(&ZelFileWrite::createOutput), 23 + destructor);
    EXPECT_EQ(slotOf(&ZelWritable::writeModel), 0);
    EXPECT_EQ(slotOf(&ZelWritable::writeBinary), 1);
    EXPECT_EQ(slotOf(&ZelIdentified::classGuid), 0);
}

template <class... Texts> auto translating() {
    return static_cast<KorString (IZelTranslator::*)(const char*, Texts...)>(
        &IZelTranslator::translate);
}

TEST(Slots, OfTranslatorsAndReceiversKeepTheirOrder) {
    using Text = const KorString&;
    expectOrder(0, &IZelTranslator::translateList,
                translating<Text, Text, Text, Text, Text, Text>(),
                translating<Text, Text, Text, Text, Text>(), translating<Text, Text, Text, Text>(),
                translating<Text, Text, Text>(), translating<Text, Text>(), translating<Text>(),
                translating<>(), &IZelTranslator::query);
    EXPECT_EQ(slotOf(&ZelTrivialTranslator::lookup), 9 + destructor);
    expectOrder(0, &IZelTranslatorService::reserved1, &IZelTranslatorService::translatorFor);
    using R = IZelDataReceiver;
    expectOrder(0, &R::receiveBool, &R::receiveInt, &R::receiveUnsigned, &R::receiveFloat,
                &R::receiveDouble, &R::receiveString, &R::receiveData);
}

#endif

} // namespace
