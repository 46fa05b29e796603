// SPDX-License-Identifier: Apache-2.0
// What is the same on every system about kin.
#include "platform/clock.h"
#include "platform/process.h"

#include <algorithm>
#include <cstdlib>

namespace platform {

std::vector<std::uint32_t> Offspring::running() const {
    std::vector<std::uint32_t> found = descendants();
    std::erase_if(found, [this](std::uint32_t id) {
        return std::find(before_.begin(), before_.end(), id) != before_.end();
    });
    return found;
}

std::int32_t Offspring::end(bool force) const {
    const std::vector<std::uint32_t> found = running();
    for (const std::uint32_t id : found) endProcess(id, force);
    return static_cast<std::int32_t>(found.size());
}

bool Offspring::endAll() const {
    constexpr int turns = 250, patientTurns = 50;
    constexpr std::uint32_t turnMs = 10;
    for (int turn = 0; turn < turns; ++turn) {
        const bool isAsking = turn > 0 && turn < patientTurns;
        if (isAsking ? running().empty() : end(turn > 0) == 0) return true;
        sleep(turnMs);
    }
    return running().empty();
}

bool isMarkAlive(const std::string& mark) {
    const auto id = static_cast<std::uint32_t>(std::strtoul(mark.c_str(), nullptr, 10));
    return id != 0 && processMark(id) == mark;
}

} // namespace platform
