// SPDX-License-Identifier: Apache-2.0
// What a block holds, as JSON.
#include "apps/blockjson.h"

#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/text/korcstring.h"

#include <algorithm>

namespace apps {

namespace {

using Json = nlohmann::ordered_json;

void appendUtf8(std::string& out, std::uint32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr std::uint32_t leads[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(leads[following] | c >> (6 * following));
    for (int i = following - 1; i >= 0; --i) out += static_cast<char>(0x80 | (c >> (6 * i) & 0x3F));
}

/// A half of a pair that stands alone becomes the replacement character.
std::string utf8(const std::u16string& units) {
    std::string result;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const std::uint32_t c = units[i];
        const bool isHigh = c >= 0xD800 && c < 0xDC00;
        const std::uint32_t next = isHigh && i + 1 < units.size() ? units[i + 1] : 0;
        if (next >= 0xDC00 && next < 0xE000) {
            appendUtf8(result, 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00));
            ++i;
        } else {
            appendUtf8(result, c >= 0xD800 && c < 0xE000 ? 0xFFFD : c);
        }
    }
    return result;
}

template <class T> Json numbers(BinInput& source, std::uint64_t count) {
    std::vector<T> values(count);
    source.read(values.data(), count);
    return values;
}

std::string guidText(const ZelGuid& id) {
    KorCString text;
    id.toText(text);
    return text.c_str();
}

Json guidValue(BinInput& source) {
    ZelGuid id;
    id.read(source);
    return guidText(id);
}

template <class Unit> std::basic_string<Unit> units(BinInput& source, const Block& block) {
    std::basic_string<Unit> text(std::min(textUnits(block), longestShown), Unit{});
    source.read(text.data(), text.size());
    return text;
}

} // namespace

std::uint64_t textUnits(const Block& block) {
    return (block.end - block.content) / (block.tag == zelblock::wideText ? 2 : 1);
}

Json blockValue(BinInput& source, const Block& block) {
    source.seek(static_cast<std::int64_t>(block.content));
    switch (block.tag) {
    case zelblock::narrowText:
        return units<char>(source, block);
    case zelblock::wideText:
        return utf8(units<char16_t>(source, block));
    case zelblock::guid:
        return guidValue(source);
    case zelblock::floatPair:
        return numbers<float>(source, 2);
    default:
        return numbers<double>(source, blockKind(block.tag)->contentBytes / sizeof(double));
    }
}

Json blockJson(BinInput& source, const Block& block) {
    const BlockKind* kind = blockKind(block.tag);
    Json json = {
        {"offset", block.offset}, {"depth", block.depth},     {"kind", kind ? kind->name : "block"},
        {"tag", block.tag},       {"version", block.version}, {"length", block.length}};
    if (block.hasGuid) json["identifier"] = guidText(block.guid);
    if (block.hasValue) json["value"] = blockValue(source, block);
    if (block.hasValue && kind->isText && textUnits(block) > longestShown) {
        json["units"] = textUnits(block);
    }
    return json;
}

std::string hexBytes(BinInput& source, std::uint64_t offset, std::uint64_t length) {
    constexpr std::uint64_t shown = 16;
    std::uint8_t bytes[shown] = {};
    source.seek(static_cast<std::int64_t>(offset));
    const std::uint64_t got = source.readBytes(bytes, std::min(length, shown));
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (std::uint64_t i = 0; i < got; ++i) {
        if (i > 0) text += ' ';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0xF];
    }
    return text;
}

std::string jsonText(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace apps
