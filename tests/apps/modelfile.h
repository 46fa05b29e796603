// SPDX-License-Identifier: Apache-2.0
// Model files as a server leaves them, made message by message.
#pragma once

#include "cadimport/curvemessages.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <QFile>

#include <numbers>

namespace apps {

class ModelFile {
public:
    explicit ModelFile(const QString& fileName) : file_(fileName), stream_(&file_) {
        file_.open(QIODevice::WriteOnly);
        stream_.setVersion(CADImport::streamVersion);
    }

    ModelFile& operator<<(const CADImport::Message& message) {
        stream_ << message.name();
        message.write(stream_);
        return *this;
    }

    void begin(double unit) {
        CADImport::NewModel message;
        message.accuracy = 0.001;
        message.unit = unit;
        *this << message;
    }
    /// A sphere of radius 1, bounded by its seam; with edge 256, loop, face and shell 1.
    void addSphere() { addSurface(), addSeam(), addTopology(); }
    void end() { *this << CADImport::EndModel(); }

private:
    static constexpr double pi = std::numbers::pi;
    static constexpr CADImport::Point3 x{1, 0, 0};

    void addSurface() {
        CADImport::CreateSphere message;
        message.identifier = 1;
        message.normal = {0, 0, 1};
        message.uDirection = x;
        message.radius = 1;
        message.uRange = {0, 2 * pi};
        message.vRange = {-pi / 2, pi / 2};
        *this << message;
    }
    void addSeam() {
        CADImport::CreateArc message;
        message.identifier = 1;
        message.normal = {0, -1, 0};
        message.direction = x;
        message.radius = 1;
        message.startAngle = -pi / 2;
        message.endAngle = pi / 2;
        *this << message;
    }
    void addTopology() {
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
        *this << edge << loop << face << shell;
    }

    QFile file_;
    QDataStream stream_;
};

} // namespace apps
