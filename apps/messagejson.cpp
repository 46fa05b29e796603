// SPDX-License-Identifier: Apache-2.0
// One object a class, by a visitor of them all.
#include "apps/messagejson.h"

#include "cadimport/controlmessages.h"
#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

namespace CADImport {

using Json = nlohmann::ordered_json;

// Found by the JSON library by these names.
static void to_json(Json& json, const Point3& p) { json = {p.x, p.y, p.z}; }
static void to_json(Json& json, const Point2& p) { json = {p.u, p.v}; }
static void to_json(Json& json, const Range2& r) { json = {r.first, r.last}; }
static void to_json(Json& json, const Box& b) { json = {b.first, b.second}; }
static void to_json(Json& json, const UVBox& b) { json = {b.first, b.second}; }
static void to_json(Json& json, const ControlPoint& p) { json = {p.x, p.y, p.z, p.w}; }

} // namespace CADImport

namespace apps {
namespace {

using namespace CADImport;
using Json = nlohmann::ordered_json;

template <class Value> Json valueJson(const Value& value) { return value; }
Json valueJson(const QString& text) { return text.toStdString(); }
template <class Element> Json valueJson(const QList<Element>& list) {
    Json array = Json::array();
    for (const Element& element : list) array.push_back(valueJson(element));
    return array;
}

template <class T> struct Handles : Visitor<T, void, true> {
    explicit Handles(Json& target) : json(target) {}
    void visit(const T& message) override;

    Json& json;
};

template <class... Classes> struct HandlesAll : BaseVisitor, Handles<Classes>... {
    explicit HandlesAll(Json& json) : Handles<Classes>(json)... {}
};

using FieldVisitor =
    HandlesAll<SetParameterMessage, NewModel, CreateBody, CreateShell, CreateFace, CreateLoop,
               CreateCoedge, CreateEdge, CreateVertex, CreateGroup, CreateCoordinateSystem,
               CreatePlane, CreateCylinder, CreateCone, CreateSphere, CreateTorus,
               CreateNURBSSurface, CreateLine, CreateArc, CreateEllipse, CreateNURBSCurve>;

#define PUT(field) json[#field] = valueJson(m.field)

void put(Json& json, const SetParameterMessage& m) { PUT(parameters); }
void put(Json& json, const NewModel& m) { PUT(absolute), PUT(accuracy), PUT(unit); }
void put(Json& json, const CreateBody& m) { PUT(identifier), PUT(boundingBox), PUT(shells); }
void put(Json& json, const CreateShell& m) {
    PUT(identifier), PUT(boundingBox), PUT(faces), PUT(closed);
}
void put(Json& json, const CreateFace& m) {
    PUT(identifier), PUT(boundingBox), PUT(uvBox), PUT(loops), PUT(surfaceId);
    PUT(sense), PUT(sides);
}
void put(Json& json, const CreateLoop& m) {
    PUT(identifier), PUT(boundingBox), PUT(uvBox), PUT(coedges), PUT(edges), PUT(faceId);
    PUT(outer);
}
void put(Json& json, const CreateCoedge& m) {
    PUT(identifier), PUT(boundingUVBox), PUT(parameterRange), PUT(edge), PUT(partner), PUT(loop);
    PUT(face), PUT(curve), PUT(sense);
}
void put(Json& json, const CreateEdge& m) {
    PUT(identifier), PUT(boundingBox), PUT(parameterRange), PUT(vertices), PUT(coedges);
    PUT(faces), PUT(curve), PUT(sense);
}
void put(Json& json, const CreateVertex& m) { PUT(identifier), PUT(point); }
void put(Json& json, const CreateGroup& m) { PUT(identifier), PUT(components); }
void put(Json& json, const CreateCoordinateSystem& m) {
    PUT(identifier), PUT(origin), PUT(xDirection), PUT(yDirection), PUT(zDirection);
}

template <class T> void put(Json& json, const AnalyticSurface<T>& m) {
    PUT(identifier), PUT(origin), PUT(normal), PUT(uDirection), PUT(uRange), PUT(vRange);
    if constexpr (requires(const T& surface) { surface.radius; }) {
        json["radius"] = static_cast<const T&>(m).radius;
    }
}
void put(Json& json, const CreateCone& m) {
    put<CreateCone>(json, m);
    PUT(angle);
}
void put(Json& json, const CreateTorus& m) {
    put<CreateTorus>(json, m);
    PUT(minorRadius), PUT(majorRadius);
}
void put(Json& json, const CreateNURBSSurface& m) {
    PUT(identifier), PUT(degreeU), PUT(degreeV), PUT(knotsU), PUT(knotsV), PUT(controlPoints);
    PUT(rational);
}

void put(Json& json, const CreateLine& m) { PUT(identifier), PUT(startPoint), PUT(endPoint); }
void put(Json& json, const CreateArc& m) {
    PUT(identifier), PUT(center), PUT(normal), PUT(direction), PUT(radius), PUT(startAngle);
    PUT(endAngle);
}
void put(Json& json, const CreateEllipse& m) {
    PUT(identifier), PUT(center), PUT(normal), PUT(direction), PUT(littleHalfAxis);
    PUT(bigHalfAxis), PUT(startAngle), PUT(endAngle);
}
void put(Json& json, const CreateNURBSCurve& m) {
    PUT(identifier), PUT(degree), PUT(knots), PUT(controlPoints), PUT(rational);
}

#undef PUT

template <class T> void Handles<T>::visit(const T& message) { put(json, message); }

} // namespace

nlohmann::ordered_json messageJson(const Message& message) {
    Json json{{"name", message.name().toStdString()}, {"valid", message.isValid()}};
    FieldVisitor fields(json);
    message.accept(fields);
    return json;
}

} // namespace apps
