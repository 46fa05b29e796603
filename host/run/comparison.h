// SPDX-License-Identifier: Apache-2.0
// What the server measured before it wrote the model, held against what was rebuilt from it.
#pragma once

#include "host/modelling/record.h"
#include "host/rebuild/rebuild.h"

#include <nlohmann/json.hpp>

#include <vector>

namespace host {

/// Makes a note of each face that the server found invalid as it was read. A loss "validity" of
/// such a face becomes that note: a face that came as it stands in the file is no loss.
void noteOldFaults(const nlohmann::ordered_json& serverReport, std::vector<DroppedRecord>& losses,
                   std::vector<DroppedRecord>& notes);

/// The faces and bodies of a model whose area or volume differs by more than one part in a million
/// beyond the margin that the server tells for the figure: "face" by its identifier, "body" by that
/// of the server. What wasn't rebuilt, or has no figure on one of the sides, isn't compared. A
/// report without figures, or with figures of an odd form, gives none.
std::vector<DroppedRecord> differences(const nlohmann::ordered_json& serverReport,
                                       const ModelRecord& record, const RebuiltModel& model);

} // namespace host
