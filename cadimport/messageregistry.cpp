// SPDX-License-Identifier: Apache-2.0
// The wire names of all messages; making each one also registers its class.
#include "cadimport/messageregistry.h"

#include "cadimport/controlmessages.h"
#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <memory>

namespace CADImport {
namespace {

QString enter(const QString& wireName, MessageFactory factory) {
    messageRegistry().insert(wireName, factory);
    return wireName;
}

} // namespace

MessageRegistry& messageRegistry() {
    static auto* const registry = new MessageRegistry;
    return *registry;
}

Message* createMessage(const MessageRegistry& registry, const QString& wireName,
                       QDataStream& stream) {
    const MessageFactory factory = registry.value(wireName, nullptr);
    std::unique_ptr<Message> message(factory ? factory() : nullptr);
    if (message) message->read(stream);
    return message.release();
}

const QString OKMessage::wireName = enter(QStringLiteral("OK"), OKMessage::create);
const QString EscapeMessage::wireName = enter(QStringLiteral("Escape"), EscapeMessage::create);
const QString FinishMessage::wireName = enter(QStringLiteral("Finish"), FinishMessage::create);
const QString SendNextModelMessage::wireName =
    enter(QStringLiteral("SendNextModel"), SendNextModelMessage::create);
const QString SetParameterMessage::wireName =
    enter(QStringLiteral("SetParameters"), SetParameterMessage::create);
const QString NewModel::wireName = enter(QStringLiteral("NewModel"), NewModel::create);
const QString EndModel::wireName = enter(QStringLiteral("EndModel"), EndModel::create);
const QString CreateBody::wireName = enter(QStringLiteral("CreateBody"), CreateBody::create);
const QString CreateShell::wireName = enter(QStringLiteral("CreateShell"), CreateShell::create);
const QString CreateFace::wireName = enter(QStringLiteral("CreateFace"), CreateFace::create);
const QString CreateLoop::wireName = enter(QStringLiteral("CreateLoop"), CreateLoop::create);
const QString CreateCoedge::wireName = enter(QStringLiteral("CreateCoedge"), CreateCoedge::create);
const QString CreateEdge::wireName = enter(QStringLiteral("CreateEdge"), CreateEdge::create);
const QString CreateVertex::wireName = enter(QStringLiteral("CreateVertex"), CreateVertex::create);
const QString CreateGroup::wireName = enter(QStringLiteral("CreateGroup"), CreateGroup::create);
const QString CreateCoordinateSystem::wireName =
    enter(QStringLiteral("CreateCoordinateSystem"), CreateCoordinateSystem::create);
const QString CreatePlane::wireName = enter(QStringLiteral("CreatePlane"), CreatePlane::create);
const QString CreateCylinder::wireName =
    enter(QStringLiteral("CreateCylinder"), CreateCylinder::create);
const QString CreateCone::wireName = enter(QStringLiteral("CreateCone"), CreateCone::create);
const QString CreateSphere::wireName = enter(QStringLiteral("CreateSphere"), CreateSphere::create);
const QString CreateTorus::wireName = enter(QStringLiteral("CreateTorus"), CreateTorus::create);
const QString CreateNURBSSurface::wireName =
    enter(QStringLiteral("CreateNURBSSurface"), CreateNURBSSurface::create);
const QString CreateLine::wireName = enter(QStringLiteral("CreateLine"), CreateLine::create);
const QString CreateArc::wireName = enter(QStringLiteral("CreateArc"), CreateArc::create);
const QString CreateEllipse::wireName =
    enter(QStringLiteral("CreateEllipse"), CreateEllipse::create);
const QString CreateNURBSCurve::wireName =
    enter(QStringLiteral("CreateNURBSCurve"), CreateNURBSCurve::create);

} // namespace CADImport
