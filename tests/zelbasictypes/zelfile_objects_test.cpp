// SPDX-License-Identifier: Apache-2.0
// Objects that read and write themselves through a reader and a writer.
#include "zelbasictypes/data/zelfile.h"

#include "tests/zelbasictypes/bytes.h"
#include "zelbasictypes/data/binio.h"
#include "zelbasictypes/data/binmemory.h"

#include <gtest/gtest.h>

namespace {

struct Pair final : ZelReadable, ZelWritable {
    void readBinary(BinInput& stream) override { stream.read(&number, 1); }
    void readModel(IZelDataModelReader& reader) override { reader.readInt(number); }
    void writeModel(IZelDataModelWriter& writer) override { writer.writeInt(number); }
    void writeBinary(BinOutput& stream) override {
        const std::int32_t doubled = 2 * number;
        stream.write(&doubled, 1);
    }
    std::int32_t number = 21;
};

TEST(ZelFile, ObjectsReadAndWriteThemselves) {
    BinOutputMemory output;
    ZelFileWrite writer(&output);
    Pair pair;
    writer.writeModel(pair);
    writer.writeBinary(pair);
    output.flushBuffer();
    EXPECT_EQ(output.bytes(), bytes("00 00 00 15 00 00 00 2A"));
    BinInputMemory input(output.bytes());
    ZelFileRead reader(&input);
    reader.readModel(pair);
    EXPECT_EQ(pair.number, 21);
    reader.readBinary(pair);
    EXPECT_EQ(pair.number, 42);
}

} // namespace
