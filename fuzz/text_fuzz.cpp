// SPDX-License-Identifier: Apache-2.0
// Any bytes as UTF-8, which must become what a plain decoder makes of them, and the result as a
// packed list, whose entries must lie in it and come back from packing. Seeds are any texts.
#include "fuzz/require.h"
#include "tests/zelbasictypes/plainutf8.h"
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/text/packedlist.h"

#include <cstdint>

namespace {

void decode(const std::string& bytes) {
    const std::vector<char> exact = textmodel::exactCopy(bytes);
    const KorString text = KorString::fromUtf8(exact.data());
    require(text.view() == plain::fromUtf8(bytes), "decoded otherwise");
    require(text.toUtf8() == plain::toUtf8(std::u16string(text.view())), "encoded otherwise");
    require(KorString::fromUtf8(text.toUtf8()) == text, "comes back otherwise");
}

/// An empty entry doesn't survive packing, which a list may have at its end.
void unpack(const KorString& text) {
    std::vector<KorString> list, again;
    zelUnpackStrings(text, list);
    for (const KorString& entry : list) require(text.find(entry) >= 0, "an entry from elsewhere");
    while (!list.empty() && list.back().isEmpty()) list.pop_back();
    KorString packed;
    zelPackStrings(packed, list);
    zelUnpackStrings(packed, again);
    require(again == list, "packs otherwise");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    decode(bytes.c_str());
    const std::u16string units = plain::fromUtf8(bytes);
    const std::vector<char16_t> exact = textmodel::exactCopy(units);
    unpack(KorString::borrow(exact.data()));
    return 0;
}
