// SPDX-License-Identifier: Apache-2.0
// Model files as a server leaves them, made message by message.
#pragma once

#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <QFile>

#include <numbers>

namespace apps {

inline CADImport::NewModel newModel(double unit) {
    CADImport::NewModel message;
    message.accuracy = 0.001;
    message.unit = unit;
    return message;
}

/// A sphere of radius 1, bounded by its seam; with edge 256, loop, face and shell 1. Each message
/// goes to `take`.
template <class Take> void giveSphere(Take take) {
    constexpr double pi = std::numbers::pi;
    CADImport::CreateSphere sphere;
    sphere.identifier = 1;
    sphere.normal = {0, 0, 1};
    sphere.uDirection = {1, 0, 0};
    sphere.radius = 1;
    sphere.uRange = {0, 2 * pi};
    sphere.vRange = {-pi / 2, pi / 2};
    CADImport::CreateArc seam;
    seam.identifier = 1;
    seam.normal = {0, -1, 0};
    seam.direction = {1, 0, 0};
    seam.radius = 1;
    seam.startAngle = -pi / 2;
    seam.endAngle = pi / 2;
    CADImport::CreateEdge edge;
    edge.identifier = 256;
    edge.curve = 1;
    edge.faces = {1, 1};
    CADImport::CreateLoop loop;
    loop.identifier = loop.faceId = 1;
    loop.coedges = {1, 2};
    loop.edges = {256, 256};
    CADImport::CreateFace face;
    face.identifier = face.surfaceId = 1;
    face.loops = {1};
    CADImport::CreateShell shell;
    shell.identifier = 1;
    shell.faces = {1};
    shell.closed = true;
    take(sphere), take(seam), take(edge), take(loop), take(face), take(shell);
}

class ModelFile {
public:
    explicit ModelFile(const QString& fileName) : file_(fileName), stream_(&file_) {
        file_.open(QIODevice::WriteOnly);
        stream_.setVersion(CADImport::streamVersion);
    }

    void begin(double unit) { write(newModel(unit)); }
    void addSphere() {
        giveSphere([this](const CADImport::Message& message) { write(message); });
    }
    void end() { write(CADImport::EndModel()); }

private:
    void write(const CADImport::Message& message) {
        stream_ << message.name();
        message.write(stream_);
    }

    QFile file_;
    QDataStream stream_;
};

} // namespace apps
