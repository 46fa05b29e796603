// SPDX-License-Identifier: Apache-2.0
// Strings as blocks of data-model files, wide and narrow: what was read comes back from writing,
// and a device that hands its bytes out in pieces, of a size that the first byte chooses, gives the
// same wide text as one that holds them all.
#include "fuzz/input.h"
#include "tests/zelbasictypes/streams.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

namespace {

template <class Text> Text readFrom(BinInput&& stream) {
    Text text;
    text.read(stream);
    return text;
}

template <class Text> void requireReturn(const Text& text) {
    BinOutputMemory out;
    require(text.write(out), "not written");
    out.flushBuffer();
    const Text again = readFrom<Text>(BinInputMemory(out.bytes()));
    require(again.view() == text.view(), "comes back otherwise");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const Bytes file(data + 1, data + size);
    const auto wide = readFrom<KorString>(BinInputMemory(file));
    require(wide == readFrom<KorString>(PortionInput(file, 1 + data[0] % 64)), "pieces differ");
    requireReturn(wide);
    requireReturn(readFrom<KorCString>(BinInputMemory(file)));
    return 0;
}
