// SPDX-License-Identifier: Apache-2.0
// A model as it was written, read back from its bytes and filed by identifier.
#pragma once

#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <QByteArray>

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace server::testing {

using CurveMessage =
    std::variant<CADImport::CreateLine, CADImport::CreateArc, CADImport::CreateEllipse>;
using SurfaceMessage =
    std::variant<CADImport::CreatePlane, CADImport::CreateCylinder, CADImport::CreateCone,
                 CADImport::CreateSphere, CADImport::CreateTorus, CADImport::CreateNURBSSurface>;

template <class Message> using ById = std::map<int, Message>;

struct WireModel {
    CADImport::NewModel header;
    ById<CurveMessage> curves;
    ById<SurfaceMessage> surfaces;
    ById<CADImport::CreateEdge> edges;
    ById<CADImport::CreateCoedge> coedges;
    ById<CADImport::CreateVertex> vertices;
    ById<CADImport::CreateLoop> loops;
    ById<CADImport::CreateFace> faces;
    ById<CADImport::CreateShell> shells;
    ById<CADImport::CreateBody> bodies;
    std::vector<std::string> order;    ///< wire names, a run of the same name as one
    std::vector<std::string> problems; ///< invalid messages, identifiers given twice, unknown names
};

WireModel readWireModel(const QByteArray& bytes);

} // namespace server::testing
