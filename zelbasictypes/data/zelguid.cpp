// SPDX-License-Identifier: Apache-2.0
// The two texts of an identifier.
#include "zelbasictypes/data/zelguid.h"

#include "platform/guid.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korcstring.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <tuple>

namespace {

constexpr std::int32_t braceLength = 38;
constexpr std::size_t listLimit = 150;

/// Reads the fields of a brace text one by one; bad as soon as one has no digit in front.
class FieldReader {
public:
    explicit FieldReader(std::string_view source) : text(source) {}

    template <class T> void read(T& field, std::size_t position) {
        const char* first = text.data() + position;
        const auto result = std::from_chars(first, first + 2 * sizeof(T), field, 16);
        good = good && result.ec == std::errc();
    }
    bool isGood() const { return good; }

private:
    std::string_view text;
    bool good = true;
};

/// Takes the next field off `rest`; empty fields are passed over.
ZelText<char> nextToken(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(','), rest.size()));
    const std::size_t length = std::min(rest.find(','), rest.size());
    const ZelText<char> token(rest.substr(0, length));
    rest.remove_prefix(length);
    return token;
}

template <class T> bool readListField(std::string_view& rest, T& field) {
    const ZelText<char> token = nextToken(rest);
    char* end = nullptr;
    const auto value = std::strtoull(token.c_str(), &end, 16);
    if (end == token.c_str()) return false;
    field = static_cast<T>(value);
    return true;
}

void readListFields(std::string_view rest, ZelGuid& out) {
    if (!readListField(rest, out.data1) || !readListField(rest, out.data2) ||
        !readListField(rest, out.data3)) {
        return;
    }
    for (std::uint8_t& byte : out.data4) {
        if (!readListField(rest, byte)) return;
    }
}

} // namespace

bool ZelGuid::generate() {
    platform::Guid made;
    if (!platform::createGuid(&made)) return false;
    data1 = made.data1;
    data2 = made.data2;
    data3 = made.data3;
    std::copy(std::begin(made.data4), std::end(made.data4), data4);
    return true;
}

std::strong_ordering ZelGuid::operator<=>(const ZelGuid& other) const {
    const std::strong_ordering numbers =
        std::tie(data1, data2, data3) <=> std::tie(other.data1, other.data2, other.data3);
    if (std::is_neq(numbers)) return numbers;
    return std::lexicographical_compare_three_way(std::begin(data4), std::end(data4),
                                                  std::begin(other.data4), std::end(other.data4));
}

void ZelGuid::toText(KorCString& out) const {
    char text[braceLength + 1];
    std::snprintf(text, sizeof text, "{%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x}", data1,
                  data2, data3, data4[0], data4[1], data4[2], data4[3], data4[4], data4[5],
                  data4[6], data4[7]);
    out = KorCString(text);
}

void ZelGuid::fromText(const KorCString& text) {
    *this = ZelGuid();
    if (text.length() != braceLength) return;
    FieldReader reader(text.view());
    ZelGuid read;
    reader.read(read.data1, 1);
    reader.read(read.data2, 10);
    reader.read(read.data3, 15);
    constexpr std::size_t bytePositions[] = {20, 22, 25, 27, 29, 31, 33, 35};
    for (std::size_t i = 0; i < 8; ++i) reader.read(read.data4[i], bytePositions[i]);
    if (reader.isGood()) *this = read;
}

void ZelGuid::toList(KorCString& out) const {
    char text[listLimit];
    std::snprintf(text, sizeof text,
                  "0x%x, 0x%x, 0x%x, 0x%x, 0x%x, 0x%x, 0x%x, 0x%x, 0x%x, 0x%x, 0x%x", data1, data2,
                  data3, data4[0], data4[1], data4[2], data4[3], data4[4], data4[5], data4[6],
                  data4[7]);
    out = KorCString(text);
}

void ZelGuid::fromList(const KorCString& text) {
    *this = ZelGuid();
    readListFields(text.view().substr(0, listLimit), *this);
}
