// SPDX-License-Identifier: Apache-2.0
// Blocks as JSON, for programs that want to look into a data-model file.
#pragma once

#include "apps/blockwalk.h"

#include <nlohmann/json.hpp>

namespace apps {

/// The value of a block that has one: an array of numbers, a text, an identifier. Texts are cut at
/// `longestShown` units.
nlohmann::ordered_json blockValue(BinInput& source, const Block& block);
inline constexpr std::uint64_t longestShown = 4096;
/// How many units the text in such a block has.
std::uint64_t textUnits(const Block& block);

/// "offset", "depth", "kind", "tag", "version", "length", and "identifier" and "value" where the
/// block has them; "units" for a text that is cut.
nlohmann::ordered_json blockJson(BinInput& source, const Block& block);

/// The first bytes in hexadecimal digits, parted by blanks.
std::string hexBytes(BinInput& source, std::uint64_t offset, std::uint64_t length);

/// As UTF-8, whatever bytes a text has.
std::string jsonText(const nlohmann::ordered_json& json);

} // namespace apps
