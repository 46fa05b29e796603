// SPDX-License-Identifier: Apache-2.0
// The kernel's own check of shapes, in words.
#pragma once

#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>

#include <string>

namespace host {

/// The first fault of a face, its wires, edges and vertices, such as "its wires cross each other";
/// empty when there is none. May throw what the kernel throws.
std::string faultOf(const TopoDS_Face& face);

/// Why a face isn't worth checking, as the end of a sentence; empty for almost every face. The
/// check compares every loop with every other, which takes minutes for thousands of them.
std::string reasonNotToCheck(const TopoDS_Face& face);

/// The first fault in how the faces of each shell fit together and the shells of each solid; faces
/// aren't checked again. Empty when there is none. May throw what the kernel throws.
std::string faultOfFit(const TopoDS_Shape& shape);

} // namespace host
