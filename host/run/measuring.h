// SPDX-License-Identifier: Apache-2.0
// From the record of an import to figures: of solids where the worker makes some, else of what
// arrived.
#pragma once

#include <functional>

namespace host {

struct ImportOptions;
struct RunOutcome;
struct Step;

/// As of RebuildOptions.
using StepListener = std::function<void(const Step& step, int number, int count)>;

/// Fills `models` and `rebuilt`, and adds what was lost on the way, or differs from what the server
/// measured, to `losses`. Picture and export are made here. An interrupt ends it early.
void measure(RunOutcome& outcome, const ImportOptions& options, const StepListener& stepBegun);

} // namespace host
