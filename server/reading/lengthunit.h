// SPDX-License-Identifier: Apache-2.0
// Length units as the exchange formats name them and as the kernel's settings know them.
#pragma once

#include "server/report.h"

#include <string>

namespace server {

/// A unit in which the kernel can be told to keep its lengths.
struct LengthUnit {
    const char* name; ///< for the report
    double millimetres;
    const char* kernelName; ///< the value of the kernel's setting
};

/// By the name in a file, in any case: "INCH", "millimetre", "MM". Null when it isn't known.
const LengthUnit* findLengthUnit(const std::string& name);

/// By the number that the kernel shares with IGES (1 inch, 2 millimetre, ...). Null when it isn't
/// known.
const LengthUnit* findLengthUnit(int number);

/// Settles which unit a transfer keeps: the file's own, so that nothing is converted. A unit that
/// the kernel doesn't know is converted to millimetres and reported; an empty name is none
/// declared.
const LengthUnit& settleUnit(const LengthUnit* known, const std::string& nameInFile,
                             Report& report);

/// Has the kernel keep lengths in a unit while it lives, then puts back what was there.
class KernelUnit {
public:
    explicit KernelUnit(const LengthUnit& unit);
    ~KernelUnit();
    KernelUnit(const KernelUnit&) = delete;
    KernelUnit& operator=(const KernelUnit&) = delete;

private:
    std::string before_;
};

} // namespace server
