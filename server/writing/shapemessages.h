// SPDX-License-Identifier: Apache-2.0
// Curves, surfaces, points and boxes in the form of their messages.
#pragma once

#include "cadimport/fieldtypes.h"
#include "server/geometry/curvepiece.h"
#include "server/geometry/facesurface.h"
#include "server/writing/messagesink.h"

#include <Bnd_Box.hxx>

namespace server {

CADImport::Point3 point3(const gp_XYZ& value);
/// A box without its gap; an empty one as a message's default.
CADImport::Box messageBox(Bnd_Box box);
CADImport::UVBox uvBox(const ParameterBox& box);

/// Whether the curve could be written.
bool writeCurve(const CurvePiece& piece, int identifier, MessageSink& sink);
/// Whether the surface could be written; there has to be one.
bool writeSurface(const FaceSurface& surface, int identifier, MessageSink& sink);

} // namespace server
