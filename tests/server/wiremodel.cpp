// SPDX-License-Identifier: Apache-2.0
// Reads records until the bytes are used up.
#include "tests/server/wiremodel.h"

#include <QDataStream>

namespace server::testing {
namespace {

class Reader {
public:
    explicit Reader(const QByteArray& bytes) : stream_(bytes) { stream_.setVersion(7); }

    WireModel read() {
        while (!stream_.atEnd() && model_.problems.size() < 20) readRecord();
        if (stream_.status() != QDataStream::Ok) model_.problems.push_back("cut short");
        return std::move(model_);
    }

private:
    template <class Message> Message take() {
        Message message;
        message.read(stream_);
        if (!message.isValid()) model_.problems.push_back("invalid " + name_);
        return message;
    }

    template <class Message, class Table> bool takeInto(Table& table) {
        if (name_ != Message::wireName.toStdString()) return false;
        const auto message = take<Message>();
        if (message.identifier == 0 || !table.emplace(message.identifier, message).second) {
            model_.problems.push_back(name_ + " has an identifier that is 0 or taken");
        }
        return true;
    }

    bool takeShape() {
        using namespace CADImport;
        auto& curves = model_.curves;
        auto& surfaces = model_.surfaces;
        return takeInto<CreateLine>(curves) || takeInto<CreateArc>(curves) ||
               takeInto<CreateEllipse>(curves) || takeInto<CreatePlane>(surfaces) ||
               takeInto<CreateCylinder>(surfaces) || takeInto<CreateCone>(surfaces) ||
               takeInto<CreateSphere>(surfaces) || takeInto<CreateTorus>(surfaces) ||
               takeInto<CreateNURBSSurface>(surfaces);
    }

    bool takeTopology() {
        using namespace CADImport;
        return takeInto<CreateEdge>(model_.edges) || takeInto<CreateCoedge>(model_.coedges) ||
               takeInto<CreateVertex>(model_.vertices) || takeInto<CreateLoop>(model_.loops) ||
               takeInto<CreateFace>(model_.faces) || takeInto<CreateShell>(model_.shells) ||
               takeInto<CreateBody>(model_.bodies);
    }

    void readRecord() {
        QString name;
        stream_ >> name;
        name_ = name.toStdString();
        if (model_.order.empty() || model_.order.back() != name_) model_.order.push_back(name_);
        if (name_ == "NewModel") {
            model_.header = take<CADImport::NewModel>();
        } else if (name_ == "EndModel") {
            take<CADImport::EndModel>();
        } else if (!takeShape() && !takeTopology()) {
            model_.problems.push_back("unknown " + name_);
        }
    }

    QDataStream stream_;
    std::string name_;
    WireModel model_;
};

} // namespace

WireModel readWireModel(const QByteArray& bytes) { return Reader(bytes).read(); }

} // namespace server::testing
