// SPDX-License-Identifier: Apache-2.0
// What the objects of one import share: the record that they fill, the trace that they write, and
// the names under which they stand in it.
#pragma once

#include "cadimport/modelling/importtarget.h"
#include "component/objects/iptr.h"
#include "host/modelling/record.h"
#include "host/modelling/trace.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Used on the import's thread. Shared by the importers, the shape objects and the import target.
struct ImportSession {
    explicit ImportSession(std::ostream* traceOutput = nullptr) : trace(traceOutput) {}

    /// The next name of an object with this interface, such as "IZelLine#2".
    std::string nameFor(std::string_view interfaceName);
    void drop(std::string what, Identifier identifier, std::string why);
    /// What is dropped from here on is of the next model to be finished.
    void beginModel();
    /// No model is under way any more. What one lost that is not kept is of no model.
    void endModel(bool kept);

    ImportRecord record;
    Trace trace;
    /// The finished models, those without an entry too, so that what finishModel gave stays good.
    std::vector<IPtr<IZelImportedModel>> finished;
    /// How many models were finished or given up.
    Identifier modelsSeen = 0;

private:
    std::map<std::string, int, std::less<>> ordinals_;
    std::int32_t model_ = 0; ///< as DroppedRecord::model
    std::size_t droppedBefore_ = 0;
};

} // namespace host
