// SPDX-License-Identifier: Apache-2.0
// The named directories of the host.
#pragma once

#include "component/objects/services/izeldirservice.h"
#include "zelbasictypes/text/korstring.h"

#include <map>
#include <string>

namespace host {

class DirectoryService : public IZelDirService {
public:
    void setDirectory(const std::string& name, const KorString& path);

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "DirectoryService"; }
    const KorString& directory(const char* name) override;

private:
    std::map<std::string, KorString, std::less<>> directories_;
    KorString none_;
};

} // namespace host
