// SPDX-License-Identifier: Apache-2.0
// One function a format.
#include "host/shape/exportfile.h"

#include "host/shape/filefailure.h"
#include "host/shape/gltffile.h"
#include "host/shape/triangles.h"

#include <BRepTools.hxx>
#include <STEPControl_Writer.hxx>
#include <StlAPI_Writer.hxx>
#include <TopExp_Explorer.hxx>

#include <algorithm>
#include <cctype>

namespace host {
namespace {

[[noreturn]] void fail() { throw FileFailure("the export could not be written"); }

void writeBrep(const TopoDS_Shape& shape, const std::string& path) {
    if (!BRepTools::Write(shape, path.c_str())) fail();
}

void writeStep(const TopoDS_Shape& shape, const std::string& path) {
    STEPControl_Writer writer;
    if (writer.Transfer(shape, STEPControl_AsIs) != IFSelect_RetDone ||
        writer.Write(path.c_str()) != IFSelect_RetDone) {
        fail();
    }
}

void writeStl(const TopoDS_Shape& shape, const std::string& path) {
    triangulate(shape);
    StlAPI_Writer writer;
    writer.ASCIIMode() = false;
    if (!writer.Write(shape, path.c_str())) fail();
}

void writeGlb(const TopoDS_Shape& shape, const std::string& path) {
    writeGltf(meshOf(shape), path);
}

struct Format {
    const char* extension;
    void (*write)(const TopoDS_Shape&, const std::string&);
};
constexpr Format formats[] = {{".brep", writeBrep},
                              {".step", writeStep},
                              {".stp", writeStep},
                              {".stl", writeStl},
                              {".glb", writeGlb}};

std::string extensionOf(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    std::string extension = dot == std::string::npos ? std::string() : path.substr(dot);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

} // namespace

void exportShape(const TopoDS_Shape& shape, const std::string& path) {
    if (!TopExp_Explorer(shape, TopAbs_FACE).More())
        throw FileFailure("there is nothing to export");
    const std::string extension = extensionOf(path);
    for (const Format& format : formats) {
        if (extension == format.extension) return format.write(shape, path);
    }
    throw FileFailure("there is no export to files that end in \"" + extension + '"');
}

} // namespace host
