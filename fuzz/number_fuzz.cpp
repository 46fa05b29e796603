// SPDX-License-Identifier: Apache-2.0
// Numbers and identifiers as texts. What a text says is what the standard library reads in it, and
// what was written reads back.
#include "fuzz/input.h"
#include "tests/zelbasictypes/textmodel.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace {

void readNumbers(const std::string& text) {
    const KorString wide(text.c_str());
    bool isNumber = false;
    const double number = wide.toDouble(&isNumber);
    char* end = nullptr;
    const double expected = std::strtod(text.c_str(), &end);
    if (isNumber) require(number == expected || std::isnan(expected), "another number");
    wide.toInt(&isNumber);
    try {
        const float real = KorCString(text.c_str()).toFloat();
        require(real == std::strtof(text.c_str(), &end) || std::isnan(real), "another float");
        require(end != text.c_str(), "a number from nothing");
    } catch (const std::invalid_argument&) {
        require(end == text.c_str(), "a number isn't taken");
    } catch (const std::out_of_range&) {
    }
}

void writeNumber(double number) {
    const KorString plain(number), formatted(number, KorFloatFormat{true, true, ".17"});
    require(!std::isfinite(number) || formatted.toDouble() == number, "reads back otherwise");
    try {
        const auto real = static_cast<float>(number);
        const KorCString text(real, true);
        require(!std::isfinite(real) || text.toFloat() == real, "a float reads back otherwise");
    } catch (const std::out_of_range&) {
    }
}

void readIdentifier(const std::string& text) {
    const std::vector<char> exact = textmodel::exactCopy(text);
    KorCString written;
    ZelGuid id, again;
    id.fromText(KorCString::borrow(exact.data()));
    id.toText(written);
    again.fromText(written);
    require(again == id, "an identifier reads back otherwise");
    id.fromList(KorCString::borrow(exact.data()));
    id.toList(written);
    again.fromList(written);
    require(again == id, "a list reads back otherwise");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    writeNumber(input.number<double>());
    const std::string text = input.rest().c_str();
    readNumbers(text);
    readIdentifier(text);
    return 0;
}
