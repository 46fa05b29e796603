// SPDX-License-Identifier: Apache-2.0
// The progress service: keeps the fraction that was told last.
#pragma once

#include "component/objects/services/izelprogress.h"

#include <atomic>

namespace host {

/// Safe on any thread.
class Progress : public IZelProgress {
public:
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "Progress"; }
    void setProgress(double fraction) override { fraction_ = fraction; }
    double fraction() const { return fraction_; }

private:
    std::atomic<double> fraction_ = 0.0;
};

} // namespace host
