// SPDX-License-Identifier: Apache-2.0
// Writes all bodies as one model.
#pragma once

#include "server/progress.h"
#include "server/reading/bodies.h"

#include <TopoDS_Face.hxx>

#include <QDataStream>

#include <vector>

namespace server {

/// A face on the wire, and how much its border may be off.
struct WrittenFace {
    int identifier = 0;
    TopoDS_Face face;   ///< as it was read
    double slack = 0.0; ///< length of each edge times its tolerance, summed, in square file units
};

struct WrittenBody {
    int identifier = 0;
    std::vector<int> shells;
    bool isWhole = false; ///< every face was written, and every shell is closed
    std::vector<WrittenFace> faces;
};

/// The stream's version is set to that of the protocol. The unit is the report's. What is written,
/// converted and dropped goes into the report. A face that can't be written is dropped and the
/// others come.
std::vector<WrittenBody> writeModel(const std::vector<Body>& bodies, QDataStream& stream,
                                    Progress& progress, Report& report);

} // namespace server
