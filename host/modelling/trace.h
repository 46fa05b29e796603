// SPDX-License-Identifier: Apache-2.0
// The trace of an import: one JSON line for each call that arrives at the modelling component.
//
// A line is [object, operation, [arguments]]. Points, directions and ranges are arrays, a box is
// its two corners, a matrix an array of 16 in the order of storage, a null pointer is null. Numbers
// have up to 17 significant digits whatever the locale; those that are not finite are the texts
// "nan", "inf" and "-inf".
#pragma once

#include "cadimport/modelling/shapearguments.h"

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

struct ZelMatrix4;

namespace host {

/// An object among the arguments, by its name in the trace; an empty name is a null pointer.
struct TraceObject {
    std::string_view name;
};

class Trace {
public:
    /// Writes to `out`, which must outlive the trace; null writes nothing.
    explicit Trace(std::ostream* out = nullptr) : out_(out) {}

    template <class... Arguments>
    void call(std::string_view object, std::string_view operation, const Arguments&... arguments) {
        if (!out_) return;
        begin(object, operation);
        (argument(arguments), ...);
        end();
    }

private:
    void begin(std::string_view object, std::string_view operation);
    void end();

    template <class T> void argument(const T& value) {
        if (line_.back() != '[') line_ += ',';
        append(value);
    }
    void append(bool value);
    void append(std::int32_t value);
    void append(double value);
    void append(std::nullptr_t);
    void append(const void* pointer);
    void append(const ZelVector3& value);
    void append(const ZelRange& value);
    void append(const ZelBox3& value);
    void append(const ZelMatrix4* matrix);
    void append(std::span<const std::int32_t> values);
    void append(const TraceObject& object);
    void appendNumbers(std::span<const double> values);

    std::ostream* out_;
    std::string line_;
};

} // namespace host
