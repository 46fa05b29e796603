// SPDX-License-Identifier: Apache-2.0
// The environment file: the last value of a name counts, and afterwards all is as before.
#include "client/environmentfile.h"
#include "fuzz/input.h"

#include <algorithm>
#include <vector>

namespace {

/// Without variables of no text, as those are left behind that weren't set before.
std::vector<std::string> environment() {
    std::vector<std::string> variables;
    for (char** each = environ; *each; ++each) {
        const std::string variable = *each;
        if (variable.find('=') + 1 < variable.size()) variables.push_back(variable);
    }
    std::sort(variables.begin(), variables.end());
    return variables;
}

const InputFolder folder;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = Input(data, size).rest();
    const auto before = environment();
    SavedEnvironment saved;
    const std::string ours =
        bytes + "\nBRIX_FUZZ=first\r\nBRIX_FUZZ=last=\n#BRIX_FUZZ=no\nBRIX_FUZZ=";
    require(loadEnvironmentFile(KorString::fromUtf8(folder.write("file", ours).c_str()), saved),
            "not read");
    const char* value = std::getenv("BRIX_FUZZ");
    require(value && std::string_view(value) == "last=", "another value");
    restoreEnvironment(saved);
    require(saved.empty() && environment() == before, "a variable is left");
    return 0;
}
