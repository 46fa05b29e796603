// SPDX-License-Identifier: Apache-2.0
// All that can be asked of a record, in this process: solids, measures, picture, export. For the
// worker program only, since a bad record can end the process.
#pragma once

#include "host/rebuild/progress.h"
#include "host/rebuild/workerlines.h"

#include <functional>
#include <set>
#include <string>

namespace host {

struct RebuildingOrder {
    std::string picture;    ///< UTF-8; empty for none
    std::string exportFile; ///< likewise
    int pictureWidth = 1024, pictureHeight = 768;
    bool tellsMeasures = false; ///< of each face
    std::set<Step> skipped;
};

/// Tells each step before it begins, then each result; WorkDone is the last. Throws std::bad_alloc
/// when memory runs out.
void rebuildHere(const ImportRecord& record, const RebuildingOrder& order,
                 const std::function<void(const WorkerLine&)>& tell);

} // namespace host
