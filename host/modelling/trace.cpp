// SPDX-License-Identifier: Apache-2.0
// Writing of the trace.
#include "host/modelling/trace.h"

#include "zelbasictypes/math/zelmatrix4.h"

#include <array>
#include <charconv>
#include <cmath>
#include <ostream>

namespace host {

void Trace::begin(std::string_view object, std::string_view operation) {
    line_ = "[\"";
    line_.append(object).append("\",\"").append(operation).append("\",[");
}

void Trace::end() {
    line_ += "]]\n";
    out_->write(line_.data(), static_cast<std::streamsize>(line_.size()));
}

void Trace::append(bool value) { line_ += value ? "true" : "false"; }

void Trace::append(std::int32_t value) { line_ += std::to_string(value); }

void Trace::append(double value) {
    if (std::isnan(value)) {
        line_ += "\"nan\"";
    } else if (std::isinf(value)) {
        line_ += value < 0 ? "\"-inf\"" : "\"inf\"";
    } else {
        std::array<char, 40> text;
        const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::general, 17);
        line_.append(text.data(), end.ptr);
    }
}

void Trace::append(std::nullptr_t) { line_ += "null"; }

/// The pointers that cross are reserved and null. One that isn't has no name here, and only its
/// presence is told.
void Trace::append(const void* pointer) { line_ += pointer ? "\"pointer\"" : "null"; }

void Trace::append(const ZelVector3& value) {
    appendNumbers(std::array<double, 3>{value.x, value.y, value.z});
}

void Trace::append(const ZelRange& value) {
    appendNumbers(std::array<double, 2>{value.first, value.last});
}

void Trace::append(const ZelBox3& value) {
    line_ += '[';
    append(value.min);
    line_ += ',';
    append(value.max);
    line_ += ']';
}

void Trace::append(const ZelMatrix4* matrix) {
    if (!matrix) return append(nullptr);
    appendNumbers(matrix->m);
}

void Trace::append(std::span<const std::int32_t> values) {
    line_ += '[';
    for (const std::int32_t value : values) argument(value);
    line_ += ']';
}

void Trace::append(const TraceObject& object) {
    if (object.name.empty()) return append(nullptr);
    line_.append("\"").append(object.name).append("\"");
}

void Trace::appendNumbers(std::span<const double> values) {
    line_ += '[';
    for (const double value : values) argument(value);
    line_ += ']';
}

} // namespace host
