// SPDX-License-Identifier: Apache-2.0
// From the value of a finished model to its entry.
#include "host/modelling/importtarget.h"

#include "component/objects/queryinterface.h"

#include <algorithm>

namespace host {

void ImportedModel::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelImportedModel>(this, className(), name, result);
}

void* ImportedModel::modelEntry() {
    session_.trace.call("model", "modelEntry");
    return counts_ ? this : nullptr;
}

void ImportTarget::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelImportTarget>(this, className(), name, result);
}

IZelImportedModel* ImportTarget::resolveModel(void* finished) {
    const auto& models = session_->finished;
    const auto found = std::find_if(models.begin(), models.end(),
                                    [&](const auto& model) { return model.iface == finished; });
    IZelImportedModel* model = found == models.end() ? nullptr : found->iface;
    session_->trace.call("importTarget", "resolveModel", TraceObject{model ? "model" : ""});
    return model;
}

} // namespace host
