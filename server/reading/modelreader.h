// SPDX-License-Identifier: Apache-2.0
// Reads a CAD file into a shape. There is one reader for each format.
//
// The kernel isn't safe against bad files: it may throw, crash or hang while it reads, so that a
// reader belongs into a process of its own, and a process reads one file.
#pragma once

#include "server/progress.h"
#include "server/report.h"

#include <TopoDS_Shape.hxx>

#include <memory>
#include <string>

namespace server {

/// What a reader is given, and where it puts what isn't the shape itself.
struct Reading {
    std::string path; ///< in the kernel's form, UTF-8
    Progress& progress;
    Report& report; ///< the reader fills format, unit, the timings of its steps and what was lost
};

class ModelReader {
public:
    virtual ~ModelReader() = default;
    /// A shape whose lengths are in the unit that the report then names. Throws a Failure when
    /// there is none, or what the kernel throws.
    virtual TopoDS_Shape read(const Reading& reading) const = 0;
};

/// The reader for a file's name, by its extension in any case; null when the format isn't
/// supported.
std::unique_ptr<ModelReader> makeReader(const std::string& fileName);

std::unique_ptr<ModelReader> makeStepReader();
std::unique_ptr<ModelReader> makeIgesReader();
std::unique_ptr<ModelReader> makeBrepReader();

} // namespace server
