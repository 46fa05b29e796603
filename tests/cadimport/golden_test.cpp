// SPDX-License-Identifier: Apache-2.0
// The text form of every kind of message, letter by letter.
#include "cadimport/controlmessages.h"
#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <gtest/gtest.h>

namespace {

using namespace CADImport;

std::string dump(const Message& message) {
    QString text;
    QTextStream stream(&text);
    stream << message;
    return text.toStdString();
}

/// The message, after `change` has set its fields, in its text form.
template <class T, class Change> std::string dumped(Change change) {
    T message;
    message.identifier = 7;
    change(message);
    return dump(message);
}

constexpr auto asItIs = [](auto&) {};

const std::string defaultBox = "\tboundingBox=((1 1 1) (-1 -1 -1))\n";
const std::string defaultUVBox = "\tuvBox=((1 1) (-1 -1))\n";

TEST(Dump, OfASignalIsItsNameTwice) {
    EXPECT_EQ(dump(OKMessage()), "<OK>\n</OK>\n");
    EXPECT_EQ(dump(EscapeMessage()), "<Escape>\n</Escape>\n");
    EXPECT_EQ(dump(FinishMessage()), "<Finish>\n</Finish>\n");
    EXPECT_EQ(dump(SendNextModelMessage()), "<SendNextModel>\n</SendNextModel>\n");
    EXPECT_EQ(dump(EndModel()), "<EndModel>\n</EndModel>\n");
}

TEST(Dump, OfWordsDoesntEscapeThem) {
    EXPECT_EQ(dump(SetParameterMessage()), "<SetParameters>\n</SetParameters>\n");
    EXPECT_EQ(dump(SetParameterMessage({"-a", "say \"<>\""})),
              "<SetParameters>\n\t\"-a\"\n\t\"say \"<>\"\"\n</SetParameters>\n");
}

TEST(Dump, WritesNumbersWithSixDigits) {
    NewModel model;
    model.accuracy = 1.0 / 3.0;
    model.unit = 25.4;
    EXPECT_EQ(dump(model),
              "<NewModel>\n\tabsolute\taccuracy=0.333333\n\tunit=25.4 mm\n</NewModel>\n");
    model.absolute = false;
    model.accuracy = 1e-7;
    model.unit = 1234567.0;
    EXPECT_EQ(dump(model),
              "<NewModel>\n\trelative\taccuracy=1e-07\n\tunit=1.23457e+06 mm\n</NewModel>\n");
}

TEST(Dump, OfTopologyIsTheFormOfOldTraces) {
    EXPECT_EQ(dumped<CreateBody>([](auto& m) {
                  m.shells = {1, -2};
              }),
              "<CreateBody identifier=\"7\">\n" + defaultBox +
                  "\tnumberOfShells=2\n\tshells=( 1 -2)\n</CreateBody>\n");
    EXPECT_EQ(dumped<CreateShell>([](auto& m) { m.faces = {3}; }),
              "<CreateShell identifier=\"7\">\n" + defaultBox +
                  "\tnumberOfFaces=1\n\tfaces=( 3)\n\tcolsed=Open  \n</CreateShell>\n");
    EXPECT_EQ(dumped<CreateShell>([](auto& m) { m.closed = true; }),
              "<CreateShell identifier=\"7\">\n" + defaultBox +
                  "\tnumberOfFaces=0\n\tfaces=()\n\tcolsed=Closed\n</CreateShell>\n");
    EXPECT_EQ(dumped<CreateFace>([](auto& m) {
                  m.loops = {4, 5}, m.surfaceId = 6;
              }),
              "<CreateFace tidentifier=\"7\">\n" + defaultBox + defaultUVBox +
                  "\tnumberOfLoops=2\n\tloops=( 4 5)\n\tsurfaceId=6\n\tsense=Forward\n"
                  "\tsides=Single\n</CreateFace>\n");
    EXPECT_EQ(dumped<CreateFace>([](auto& m) { m.sense = m.sides = true; }),
              "<CreateFace tidentifier=\"7\">\n" + defaultBox + defaultUVBox +
                  "\tnumberOfLoops=0\n\tloops=()\n\tsurfaceId=0\n\tsense=Reverse\n"
                  "\tsides=Double\n</CreateFace>\n");
    EXPECT_EQ(dumped<CreateLoop>([](auto& m) {
                  m.coedges = {1, 2}, m.edges = {3}, m.faceId = 4;
              }),
              "<CreateLoop identifier=\"7\">\n" + defaultBox + defaultUVBox +
                  "\tnumberOfComponents=2\n\t\tcoedges=( 1 2)\n\tedges=( 3)\n\tfaceId=4\n"
                  "\touter=Outer\n</CreateLoop>\n");
    EXPECT_EQ(dumped<CreateLoop>([](auto& m) { m.outer = false; }),
              "<CreateLoop identifier=\"7\">\n" + defaultBox + defaultUVBox +
                  "\tnumberOfComponents=0\n\t\tcoedges=()\n\tedges=()\n\tfaceId=0\n"
                  "\touter=Inner\n</CreateLoop>\n");
    EXPECT_EQ(dumped<CreateCoedge>(
                  [](auto& m) { m.edge = 1, m.partner = 2, m.loop = 3, m.face = 4, m.curve = 5; }),
              "<CreateCoedge identifier=\"7\">\n\tboundingUVBox=((1 1) (-1 -1))\n"
              "\tparameterRange=( 1 -1)\n\tedge=1\n\tpartner=2\n\tloop=3\n\tface=4\n\tcurve=5\n"
              "\tsense=Forward\n</CreateCoedge>\n");
    EXPECT_EQ(dumped<CreateEdge>([](auto& m) {
                  m.vertices = {1, 2}, m.coedges = {3, 4}, m.faces = {5, 6}, m.curve = 8;
                  m.boundingBox = {{0, 0.5, 1}, {2, 3, 4}}, m.sense = true;
              }),
              "<CreateEdge identifier=\"7\">\n\tboundingBox=((0 0.5 1) (2 3 4))\n"
              "\tparameterRange=( 1 -1)\n\tvertices=( 1 2)\n\tcoedges=( 3 4)\n\tfaces=( 5 6)\n"
              "\tcurve=8\n\tsense=Reverse\n</CreateEdge>\n");
    EXPECT_EQ(dumped<CreateVertex>([](auto& m) {
                  m.point = {1, 2, 3};
              }),
              "<CreateVertex identifier=\"7\">\n\tpoint=( 1 2 3)\n</CreateVertex>\n");
    EXPECT_EQ(dumped<CreateGroup>([](auto& m) {
                  m.components = {1, 2};
              }),
              "<CreateGroup> tidentifier=\"7\">\n\tcomponents=( number=2\n\t 1 2)\n"
              "</CreateGroup>\n");
    EXPECT_EQ(dumped<CreateCoordinateSystem>([](auto& m) {
                  m.yDirection = {0, 1, 0};
              }),
              "<CreateCoordinateSystem identifier=\"7\">\n\torigin=( 0 0 0)\n"
              "\txDirection=( 0 0 0)\n\tyDirection=( 0 1 0)\n\tzDirection=( 0 0 0)\n"
              "</CreateCoordinateSystem>\n");
}

TEST(Dump, OfASurfaceIsItsFrameAndItsOwnFields) {
    const std::string frame = " identifier=\"7\">\n\torigin=(0 0 0)\n\tnormal=(0 0 0)\n"
                              "\tuDirection=(0 0 0)\n\tuRange=(0 0)\n\tvRange=(0 0)\n";
    EXPECT_EQ(dumped<CreatePlane>(asItIs), "<CreatePlane" + frame + "</CreatePlane>\n");
    EXPECT_EQ(dumped<CreateCylinder>([](auto& m) { m.radius = 2; }),
              "<CreateCylinder" + frame + "\tradius=2\n</CreateCylinder>\n");
    EXPECT_EQ(dumped<CreateCone>([](auto& m) { m.angle = 0.25; }),
              "<CreateCone" + frame + "\tangle=0.25\n</CreateCone>\n");
    EXPECT_EQ(dumped<CreateSphere>([](auto& m) { m.radius = 3; }),
              "<CreateSphere" + frame + "\tradius=3\n</CreateSphere>\n");
    EXPECT_EQ(dumped<CreateTorus>([](auto& m) { m.minorRadius = 1, m.majorRadius = 4; }),
              "<CreateTorus" + frame + "\tminorRadius=1\n\tmajorRadius=4\n</CreateTorus>\n");
}

TEST(Dump, OfANurbsSurfaceCountsEveryRowByTheFirst) {
    const auto change = [](CreateNURBSSurface& m) {
        m.degreeU = 1, m.degreeV = 2, m.rational = true;
        m.knotsU = {0, 0.5}, m.knotsV = {};
        m.controlPoints = {{{1, 2, 3, 4}}, {{5, 6, 7, 8}, {9, 9, 9, 9}}, {}};
    };
    EXPECT_EQ(dumped<CreateNURBSSurface>(change),
              "<CreateNURBSSurface identifier=\"7\">\n\tdegreeU=1\n\tdegreeV=2\n\trational=true \n"
              "\tknotsU=( number=2\n\t 0 0.5)\n\tknotsV=( number=0\n\t)\n"
              "\tcontrolPoints=( number=3\n"
              "\t( number=1\n\t\t( 1 2 3 4)\n\t)\n"
              "\t( number=1\n\t\t( 5 6 7 8)\n\t)\n"
              "\t( number=1\n\t)\n"
              "\t)\n</CreateNURBSSurface>\n");
}

TEST(Dump, OfASplineSaysWhetherItIsRational) {
    const std::string surface = dumped<CreateNURBSSurface>(asItIs);
    const std::string curve = dumped<CreateNURBSCurve>([](auto& m) { m.rational = true; });
    EXPECT_NE(surface.find("\trational=false\n"), surface.npos) << surface;
    EXPECT_NE(curve.find("\trational=true \n"), curve.npos) << curve;
}

TEST(Dump, OfACurveIsTheFormOfOldTraces) {
    EXPECT_EQ(dumped<CreateLine>([](auto& m) {
                  m.endPoint = {1, 2, 3};
              }),
              "<CreateLine identifier=\"7\">\n\tstartPoint=(0 0 0)\tendPoint=(1 2 3)\n"
              "</CreateLine>\n");
    const std::string frame =
        " identifier=\"7\">\n\tcenter=(0 0 0)\n\tnormal=(0 0 0)\n\tdirection=(0 0 0)\n";
    EXPECT_EQ(dumped<CreateArc>([](auto& m) { m.radius = 1, m.startAngle = 2, m.endAngle = 3; }),
              "<CreateArc" + frame + "\tradius=1\n\tstartAngle=2\n\tendAngle=3\n</CreateArc>\n");
    EXPECT_EQ(dumped<CreateEllipse>([](auto& m) { m.littleHalfAxis = 1, m.bigHalfAxis = 2; }),
              "<CreateEllipse" + frame +
                  "\tlittleHalfAxis=1\n\tbigHalfAxis=2\n\tstartAngle=0\n\tendAngle=0\n"
                  "</CreateEllipse>\n");
    EXPECT_EQ(dumped<CreateNURBSCurve>([](auto& m) {
                  m.degree = 3, m.knots = {0, 1}, m.controlPoints = {{1, 2, 3, 4}};
              }),
              "<CreateNURBSCurve identifier=\"7\">\n\tdegree=3\n\trational=false\n"
              "\tknots=( number=2\n\t 0 1)\n\tcontrolPoints=( number=1\n\t\t( 1 2 3 4)\n\t)\n"
              "</CreateNURBSCurve>\n");
}

} // namespace
