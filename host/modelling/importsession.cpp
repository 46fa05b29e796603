// SPDX-License-Identifier: Apache-2.0
// The shared state of one import.
#include "host/modelling/importsession.h"

namespace host {

std::string ImportSession::nameFor(std::string_view interfaceName) {
    auto found = ordinals_.find(interfaceName);
    if (found == ordinals_.end()) found = ordinals_.emplace(interfaceName, 0).first;
    return std::string(interfaceName) + '#' + std::to_string(++found->second);
}

void ImportSession::drop(std::string what, Identifier identifier, std::string why) {
    record.dropped.push_back({std::move(what), identifier, std::move(why), model_});
}

void ImportSession::beginModel() {
    model_ = static_cast<std::int32_t>(record.models.size()) + 1;
    droppedBefore_ = record.dropped.size();
}

void ImportSession::endModel(bool kept) {
    for (std::size_t i = droppedBefore_; model_ != 0 && !kept && i < record.dropped.size(); ++i) {
        record.dropped[i].model = 0;
    }
    model_ = 0;
}

} // namespace host
