// SPDX-License-Identifier: Apache-2.0
// The steps of rebuilding as phases of a run, for people.
#pragma once

#include "host/rebuild/progress.h"

#include <map>
#include <string>

namespace host {

inline std::string phaseOf(const Step& step) {
    static const std::map<std::string, std::string> phases{
        {"record", "preparing solids"}, {"edge", "rebuilding edges"},
        {"face", "rebuilding faces"},   {"model", "putting solids together"},
        {"box", "measuring"},           {"measure", "measuring faces"},
        {"check", "checking faces"},    {"fit", "checking solids"},
        {"picture", "drawing"},         {"export", "writing the shape file"},
    };
    const auto found = phases.find(step.what);
    return found != phases.end() ? found->second : "rebuilding solids";
}

} // namespace host
