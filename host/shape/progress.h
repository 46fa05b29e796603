// SPDX-License-Identifier: Apache-2.0
// How the building says what it is at, what it left out, and what it was told to leave out.
#pragma once

#include "host/modelling/record.h"

#include <functional>
#include <set>
#include <string>
#include <tuple>

namespace host {

/// One step of the work. `model` counts from 1. `what` is "edge", "face", "shell", or a stage of a
/// whole model: "model", "measure", "check"; of all models: "picture", "export".
struct Step {
    int model = 0;
    std::string what;
    Identifier identifier = 0;

    bool operator<(const Step& other) const {
        return std::tie(model, what, identifier) <
               std::tie(other.model, other.what, other.identifier);
    }
};

/// The building calls `begins` before each step, so that whoever watches knows where a crash was.
struct Progress {
    std::function<void(const Step&)> begins = [](const Step&) {};
    std::function<void(const DroppedRecord&)> drops = [](const DroppedRecord&) {};
    std::set<Step> skipped; ///< never begun
    int model = 1;          ///< the model under way

    bool isSkipped(const char* what, Identifier identifier) const {
        return skipped.count({model, what, identifier}) > 0;
    }
    void begin(const char* what, Identifier identifier) const { begins({model, what, identifier}); }
    void drop(const char* what, Identifier identifier, const std::string& why) const {
        drops({what, identifier, why});
    }
};

} // namespace host
