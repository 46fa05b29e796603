// SPDX-License-Identifier: Apache-2.0
// What is exported is read again.
#include "host/shape/exportfile.h"

#include "host/shape/filefailure.h"
#include "host/shape/triangles.h"
#include "tests/server/shapes.h"

#include <BRepGProp.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <GProp_GProps.hxx>
#include <Poly_Triangulation.hxx>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtEndian>
#include <RWStl.hxx>
#include <STEPControl_Reader.hxx>
#include <TopoDS_Compound.hxx>
#include <gtest/gtest.h>

namespace host {
namespace {

using namespace server::testing;

constexpr double boxVolume = 6000.0;

class ExportFile : public ::testing::Test {
protected:
    std::string name(const char* file) const { return folder_.filePath(file).toStdString(); }

    QTemporaryDir folder_;
};

double volume(const TopoDS_Shape& shape) {
    GProp_GProps properties;
    BRepGProp::VolumeProperties(shape, properties);
    return properties.Mass();
}

TEST_F(ExportFile, WritesBrepAndStepUnderBothNamesInAnyCase) {
    exportShape(box(), name("box.brep"));
    TopoDS_Shape read;
    ASSERT_TRUE(BRepTools::Read(read, name("box.brep").c_str(), BRep_Builder()));
    EXPECT_NEAR(volume(read), boxVolume, 1e-6);
    for (const char* file : {"box.step", "box.STP"}) {
        exportShape(box(), name(file));
        STEPControl_Reader reader;
        ASSERT_EQ(reader.ReadFile(name(file).c_str()), IFSelect_RetDone);
        reader.TransferRoots();
        EXPECT_NEAR(volume(reader.OneShape()), boxVolume, 1e-6);
    }
}

TEST_F(ExportFile, MeshesAsFinelyAfterAPictureAsWithoutOne) {
    const auto trianglesOf = [&](bool isDrawnFirst) {
        const TopoDS_Shape rod = BRepPrimAPI_MakeCylinder(0.05, 100.0).Shape(); // so angles count
        if (isDrawnFirst) triangulate(rod, MeshFineness::forPixels(1024));
        exportShape(rod, name("rod.stl"));
        return RWStl::ReadFile(name("rod.stl").c_str())->NbTriangles();
    };
    EXPECT_EQ(trianglesOf(true), trianglesOf(false));
}

TEST_F(ExportFile, WritesStlWhoseTrianglesFaceOutward) {
    exportShape(box(), name("box.stl"));
    const Handle(Poly_Triangulation) mesh = RWStl::ReadFile(name("box.stl").c_str());
    ASSERT_FALSE(mesh.IsNull());
    double sum = 0.0;
    for (int i = 1; i <= mesh->NbTriangles(); ++i) {
        int a = 0, b = 0, c = 0;
        mesh->Triangle(i).Get(a, b, c);
        sum += mesh->Node(a).XYZ().DotCross(mesh->Node(b).XYZ(), mesh->Node(c).XYZ()) / 6.0;
    }
    EXPECT_NEAR(sum, boxVolume, 1e-2);
}

class GltfFile {
public:
    explicit GltfFile(const std::string& name) {
        QFile file(QString::fromStdString(name));
        if (file.open(QIODevice::ReadOnly)) bytes = file.readAll();
        jsonLength = number(12);
        json = QJsonDocument::fromJson(bytes.mid(20, static_cast<int>(jsonLength))).object();
    }
    quint32 number(quint32 at) const { return qFromLittleEndian<quint32>(bytes.constData() + at); }
    float real(quint32 at) const {
        const quint32 bits = number(at);
        float value = 0.0F;
        memcpy(&value, &bits, sizeof value);
        return value;
    }
    QJsonObject accessor(int index) const { return json["accessors"].toArray()[index].toObject(); }
    quint32 start(int index) const {
        const int view = accessor(index)["bufferView"].toInt();
        const QJsonObject known = json["bufferViews"].toArray()[view].toObject();
        return 20 + jsonLength + 8 + static_cast<quint32>(known["byteOffset"].toInt());
    }

    QByteArray bytes;
    quint32 jsonLength = 0;
    QJsonObject json;
};

TEST_F(ExportFile, WritesGltfInMetresWithYUpWhoseTrianglesEncloseTheVolume) {
    exportShape(box(), name("box.glb"));
    const GltfFile file(name("box.glb"));
    EXPECT_EQ(file.bytes.left(8), QByteArray("glTF\2\0\0\0", 8));
    EXPECT_EQ(file.number(8), static_cast<quint32>(file.bytes.size()));
    const QJsonArray most = file.accessor(0)["max"].toArray();
    EXPECT_NEAR(most[1].toDouble() - file.accessor(0)["min"].toArray()[1].toDouble(), 0.03, 1e-7);
    const auto corner = [&](int index, quint32 axis) {
        const quint32 vertex = file.number(file.start(2) + 4 * static_cast<quint32>(index));
        return static_cast<double>(file.real(file.start(0) + 12 * vertex + 4 * axis));
    };
    double sum = 0.0;
    const int count = file.accessor(2)["count"].toInt();
    ASSERT_GE(count, 36);
    for (int i = 0; i < count; i += 3) {
        gp_XYZ p[3];
        for (int k = 0; k < 3; ++k) p[k] = {corner(i + k, 0), corner(i + k, 1), corner(i + k, 2)};
        sum += p[0].DotCross(p[1], p[2]) / 6.0;
    }
    EXPECT_NEAR(sum, boxVolume * 1e-9, 1e-11);
}

TEST_F(ExportFile, SaysWhatItCannotDo) {
    TopoDS_Compound empty;
    BRep_Builder().MakeCompound(empty);
    EXPECT_THROW(exportShape(empty, name("empty.step")), FileFailure);
    EXPECT_THROW(exportShape(box(), name("box.dwg")), FileFailure);
    EXPECT_THROW(exportShape(box(), name("box")), FileFailure);
    for (const char* file :
         {"no/such/box.step", "no/such/box.brep", "no/such/box.stl", "no/such/box.glb"}) {
        EXPECT_THROW(exportShape(box(), name(file)), FileFailure) << file;
    }
}

} // namespace
} // namespace host
