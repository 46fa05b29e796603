// SPDX-License-Identifier: Apache-2.0
// Uniform integers without the library's distributions, which differ between implementations.
#include "host/services/random.h"

#include "component/objects/queryinterface.h"

namespace host {

void Random::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelRandom>(this, className(), name, result);
}

void Random::seed(std::int32_t value) { engine_.seed(static_cast<std::uint32_t>(value)); }

/// Draws above the last whole multiple of the limit are drawn again, so that none is favoured.
std::int32_t Random::below(std::int32_t limit) {
    if (limit <= 1) return 0;
    constexpr std::uint64_t draws = std::uint64_t(1) << 32;
    const auto choices = static_cast<std::uint64_t>(limit);
    std::uint64_t draw = engine_();
    while (draw >= draws - draws % choices) draw = engine_();
    return static_cast<std::int32_t>(draw % choices);
}

} // namespace host
