// SPDX-License-Identifier: Apache-2.0
// How a process without a console or window is asked to stop: it waits for an event whose name
// holds its number, and whoever wants it to stop sets that.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

inline std::wstring stopEventName(std::uint32_t processId) {
    return L"Local\\zel-stop-" + std::to_wstring(processId);
}

} // namespace platform
