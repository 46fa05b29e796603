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
#include <optional>
#include <vector>

namespace host {

struct Step;

/// Times are processor time of the worker, so that a result doesn't depend on what else the machine
/// is doing. 0 sets no limit.
struct RebuildLimits {
    int timeMs = 120'000;    ///< for everything, all tries together
    int stepTimeMs = 30'000; ///< for one step, such as one face
    int silenceMs = 300'000; ///< by the clock: for a worker that says nothing and uses no processor
    std::int64_t memoryBytes = std::int64_t{4} << 30; ///< of a worker

    /// The defaults with room for a record of so many faces.
    static RebuildLimits forFaces(std::size_t faces);
};

struct RebuildOptions {
    QString program;    ///< the worker; see rebuildProgram
    QString picture;    ///< where a PNG goes; empty for none. Replaced when it exists
    QString exportFile; ///< .brep, .step, .stl or .glb; empty for none. Replaced when it exists
    int pictureWidth = 1024;
    int pictureHeight = 768;
    RebuildLimits limits;
    bool measuresFaces = true; ///< whether the outcome tells the figures of each face
    int tries = 16;            ///< how many workers may be started
    /// Asked a few times a second on the calling thread; true ends the worker and the rebuilding.
    std::function<bool()> stopRequested;
    /// Told of each step that a worker begins, on the calling thread: it is number `number` of the
    /// `count` of its kind that the record makes likely, from 1.
    std::function<void(const Step& step, int number, int count)> stepBegun;
};

/// What one face of a model measures.
struct FaceMeasure {
    Identifier identifier = 0;
    double areaM2 = 0.0;
    /// Between the face and a point that is the same for all faces of the model, negative when the
    /// face looks at it: the sum over a closed shell is the volume within.
    double volumeM3 = 0.0;
};

/// One model as it was built, whatever was left out of it.
struct RebuiltModel {
    int faces = 0, edges = 0, shells = 0; ///< edges without extent, as at a pole, don't count
    bool closed = false;                  ///< every shell is
    /// Whether the kernel's own check finds nothing; none when not everything could be checked.
    std::optional<bool> valid;
    double areaM2 = 0.0;
    double volumeM3 = 0.0;                ///< of the closed shells, voids taken off
    std::array<double, 6> boundingBoxM{}; ///< least x, y, z, then greatest; zeros when empty
    std::vector<FaceMeasure> faceMeasures;
};

struct RebuildOutcome {
    std::vector<RebuiltModel> models; ///< one for each model of the record, in order
    /// What was left out: "face", "edge" and "shell" by their identifiers; "measure" by that of a
    /// face that was built but does not count in areas and volumes; "validity" by that of a face
    /// that the kernel's check finds fault with, or 0 when the fault is in how faces fit together;
    /// "model" and "box" by the number of the model from 1; "picture" and "export" with 0.
    std::vector<DroppedRecord> dropped;
    /// "check" by the identifier of a face that could not be checked, "fit" by the number of the
    /// model when it could not be checked how its faces fit together.
    std::vector<DroppedRecord> notes;
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
