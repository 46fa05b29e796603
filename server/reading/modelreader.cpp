// SPDX-License-Identifier: Apache-2.0
// The choice of a reader.
#include "server/reading/modelreader.h"

#include <algorithm>
#include <cctype>

namespace server {
namespace {

std::string extensionOf(const std::string& fileName) {
    const auto dot = fileName.rfind('.');
    if (dot == std::string::npos) return {};
    std::string extension = fileName.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

} // namespace

std::unique_ptr<ModelReader> makeReader(const std::string& fileName) {
    const std::string extension = extensionOf(fileName);
    if (extension == "step" || extension == "stp") return makeStepReader();
    if (extension == "iges" || extension == "igs") return makeIgesReader();
    if (extension == "brep" || extension == "brp") return makeBrepReader();
    return nullptr;
}

} // namespace server
