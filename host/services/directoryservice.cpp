// SPDX-License-Identifier: Apache-2.0
// Finding a named directory.
#include "host/services/directoryservice.h"

#include "component/objects/queryinterface.h"

namespace host {

void DirectoryService::setDirectory(const std::string& name, const KorString& path) {
    directories_[name] = path;
}

void DirectoryService::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelDirService>(this, className(), name, result);
}

const KorString& DirectoryService::directory(const char* name) {
    const auto found = name ? directories_.find(name) : directories_.end();
    return found == directories_.end() ? none_ : found->second;
}

} // namespace host
