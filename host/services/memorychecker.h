// SPDX-License-Identifier: Apache-2.0
// The host's own view of the memory, which here is that of the operating system.
#pragma once

#include "component/objects/services/imemchecker.h"

namespace host {

/// Asked only while it is active. A unit of 0 counts as 1.
class MemoryChecker : public IMemChecker {
public:
    explicit MemoryChecker(bool active) : active_(active) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "MemoryChecker"; }
    bool isActive() override { return active_; }
    std::int32_t status(std::uint64_t* free, std::uint64_t* total, std::uint64_t* swapFree,
                        std::uint64_t* swapTotal, std::uint32_t unit) override;
    std::uint64_t used(std::uint32_t unit) override;

private:
    bool active_;
};

} // namespace host
