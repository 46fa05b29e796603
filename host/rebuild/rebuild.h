// SPDX-License-Identifier: Apache-2.0
// From the plain record to solids, by way of the worker program that holds the geometry kernel.
//
// A record can make the kernel crash, hang or eat all memory. The kernel therefore never runs in
// the host's process: the worker works under limits and says what it is at before it begins with
// it. When it dies, what it was at is left out and a new worker does the rest.
//
// Lengths, areas and volumes are in metres, square and cubic metres.
#pragma once

#include "host/modelling/record.h"

#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace host {

struct Step;

struct RebuildOptions {
    QString program;    ///< the worker; see rebuildProgram
    QString picture;    ///< where a PNG goes; empty for none. Replaced when it exists
    QString exportFile; ///< .brep, .step, .stl or .glb; empty for none. Replaced when it exists
    int pictureWidth = 1024;
    int pictureHeight = 768;
    int timeLimitMs = 120000; ///< for everything, all tries together
    int stepLimitMs = 30000;  ///< for one step, such as one face, before it counts as hanging
    std::int64_t memoryLimitBytes = std::int64_t{4} << 30; ///< of a worker; 0 for none
    int tries = 16;                                        ///< how many workers may be started
    /// Asked a few times a second on the calling thread; true ends the worker and the rebuilding.
    std::function<bool()> stopRequested;
    /// Told of each step that a worker begins, on the calling thread: it is number `number` of the
    /// `count` of its kind that the record makes likely, from 1.
    std::function<void(const Step& step, int number, int count)> stepBegun;
};

/// One model as it was built, whatever was left out of it.
struct RebuiltModel {
    int faces = 0, edges = 0, shells = 0; ///< edges without extent, as at a pole, don't count
    bool closed = false;                  ///< every shell is
    bool valid = false;                   ///< the kernel's own check finds nothing
    double areaM2 = 0.0;
    double volumeM3 = 0.0;                ///< of the closed shells, voids taken off
    std::array<double, 6> boundingBoxM{}; ///< least x, y, z, then greatest; zeros when empty
};

struct RebuildOutcome {
    std::vector<RebuiltModel> models; ///< one for each model of the record, in order
    /// What was left out: "face", "edge" and "shell" by their identifiers; "measure" by that of a
    /// face that was built but does not count in areas and volumes; "model", "box" and "check" by
    /// the number of the model from 1; "picture" and "export" with 0.
    std::vector<DroppedRecord> dropped;
    bool pictureWritten = false;
    bool exportWritten = false;
    QString failure; ///< empty when a worker came to its end; what `models` holds is good anyway
};

/// The worker beside the running program, or where BRIX_REBUILD_PROGRAM says; empty when there is
/// none.
QString rebuildProgram();

/// Blocks until the worker is done; needs no event loop. Leaves no process and no temporary file
/// behind. Never throws.
RebuildOutcome rebuild(const ImportRecord& record, const RebuildOptions& options);

} // namespace host
