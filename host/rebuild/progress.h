// SPDX-License-Identifier: Apache-2.0
// How the rebuilding says what it is at, what it left out, and what it was told to leave out. Knows
// no kernel: both sides of the worker's border use it.
#pragma once

#include "host/modelling/record.h"

#include <functional>
#include <set>
#include <string>
#include <tuple>

namespace host {

/// One step of the work. `model` counts from 1; 0 stands for all models. `what` is
/// - "edge" or "face", and "measure" or "check" for a face, with the identifier in the record;
/// - a stage of one model, with the model's number as identifier: "model" (putting it together),
///   "box", "fit" (checking how its faces fit together);
/// - a stage of all models, with 0: "record" (reading it), "picture", "export".
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
    /// What is worth knowing and costs nothing of the model.
    std::function<void(const DroppedRecord&)> notes = [](const DroppedRecord&) {};
    std::set<Step> skipped; ///< never begun
    int model = 1;          ///< the model under way

    bool isSkipped(const char* what, Identifier identifier) const {
        return skipped.count({model, what, identifier}) > 0;
    }
    void begin(const char* what, Identifier identifier) const { begins({model, what, identifier}); }
    void drop(const char* what, Identifier identifier, const std::string& why) const {
        drops({what, identifier, why});
    }
    void note(const char* what, Identifier identifier, const std::string& why) const {
        notes({what, identifier, why});
    }
};

} // namespace host
