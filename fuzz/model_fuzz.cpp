// SPDX-License-Identifier: Apache-2.0
// Data-model files from arbitrary bytes. A reader that follows their tags must see the same through
// a stream that holds all bytes and through one that hands them out in pieces, whose size the first
// byte chooses; and the walk of kor-dump must show every byte of the file once.
#include "apps/blockjson.h"
#include "fuzz/require.h"
#include "tests/zelbasictypes/streams.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelfile.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

namespace {

class Trace {
public:
    explicit Trace(BinInput& stream) : reader_(&stream) {
        reader_.checkFileHeader();
        follow();
    }
    bool operator==(const Trace& other) const { return text_ == other.text_; }

private:
    void note(const std::string& step) {
        text_ += step + " " + std::to_string(reader_.stream()->tell()) +
                 (reader_.good() ? " good\n" : " bad\n");
    }

    void follow() {
        int depth = 1;
        while (depth > 0) {
            if (reader_.atBlockEnd()) {
                reader_.endBlock();
                --depth;
            } else {
                depth += value();
            }
            note(std::to_string(depth));
        }
    }

    /// Reads what the tag ahead promises; the number of blocks entered.
    int value() {
        double numbers[16] = {};
        KorString wide;
        KorCString narrow;
        ZelGuid guid;
        reader_.isNextObject(*reader_.peekGuid());
        switch (reader_.peekTag()) {
        case zelblock::matrix:
            reader_.readMatrix(numbers);
            break;
        case zelblock::vector:
            reader_.readVector(numbers);
            break;
        case zelblock::guid:
            reader_.readGuid(guid);
            break;
        case zelblock::narrowText:
            reader_.readNarrowString(narrow); // what one call of the device gives: not compared
            break;
        case zelblock::wideText:
            // Ends the walk where the text can't be read, since that leaves the reader good.
            if (!reader_.peekName()->isEmpty()) return reader_.readWideString(wide), 0;
            return reader_.beginBlock();
        default:
            return reader_.beginBlock();
        }
        note(std::to_string(numbers[0]));
        return 0;
    }

    ZelFileRead reader_;
    std::string text_;
};

/// Blocks and plain bytes come in the order of the file, and none lies behind it.
class Order : public apps::BlockSink {
public:
    explicit Order(BinInput& source) : source_(source) {}
    void block(const apps::Block& block) override {
        require(block.end <= source_.size() && block.offset <= block.end, "a block outside");
        advance(block.offset);
        apps::jsonText(apps::blockJson(source_, block));
    }
    void plain(std::uint64_t offset, std::uint64_t length, std::int32_t) override {
        advance(offset);
        require(length > 0 && offset + length <= source_.size(), "plain bytes outside");
        next_ = offset + length;
    }
    void damage(std::uint64_t offset, const std::string&) override {
        require(offset <= source_.size(), "damage outside");
    }

private:
    void advance(std::uint64_t offset) {
        require(offset >= next_, "a byte was met twice");
        next_ = offset + 1;
    }

    BinInput& source_;
    std::uint64_t next_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const Bytes file(data + 1, data + size);
    BinInputMemory whole(file), shown(file);
    PortionInput pieces(file, 1 + data[0] % 64);
    require(Trace(whole) == Trace(pieces), "pieces are read otherwise than the whole");
    Order order(shown);
    apps::BlockWalk(shown, order).run();
    return 0;
}
