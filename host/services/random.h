// SPDX-License-Identifier: Apache-2.0
// The host's random numbers: one seed gives one sequence, on every machine.
#pragma once

#include "component/objects/services/izelrandom.h"

#include <random>

namespace host {

class Random : public IZelRandom {
public:
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "Random"; }
    void seed(std::int32_t value) override;
    /// 0 for a limit of 1 or less.
    std::int32_t below(std::int32_t limit) override;

private:
    std::mt19937 engine_;
};

} // namespace host
