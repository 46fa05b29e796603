// SPDX-License-Identifier: Apache-2.0
// Following every reference of a model once.
#include "host/modelling/modelcheck.h"

#include "host/modelling/importsession.h"

#include <set>

namespace host {
namespace {

/// Looks entities of one kind up and remembers which ones were asked for.
template <class Entities> class References {
public:
    References(const Entities& entities, const char* kind, ImportSession& session)
        : entities_(entities), kind_(kind), session_(session) {}

    void follow(const char* what, Identifier from, Identifier to) {
        if (entities_.count(to)) {
            used_.insert(to);
        } else {
            session_.drop(what, from,
                          std::string("it names ") + kind_ + ' ' + std::to_string(to) +
                              ", which did not arrive");
        }
    }
    void noteUnused(const char* why) const {
        for (const auto& entity : entities_) {
            if (!used_.count(entity.first)) session_.drop(kind_, entity.first, why);
        }
    }

private:
    const Entities& entities_;
    const char* kind_;
    ImportSession& session_;
    std::set<Identifier> used_;
};

void checkEdges(const ModelRecord& model, ImportSession& session) {
    References faces(model.faces, "face", session);
    for (const auto& [identifier, edge] : model.edges) {
        if (!edge.curve) session.drop("edge", identifier, "it came without a curve");
        for (const Identifier face : edge.faces) {
            if (face) faces.follow("edge", identifier, face);
        }
    }
}

void checkLoops(const ModelRecord& model, ImportSession& session) {
    References edges(model.edges, "edge", session);
    for (const auto& [identifier, loop] : model.loops) {
        for (const Identifier edge : loop.edges) edges.follow("loop", identifier, edge);
    }
    edges.noteUnused("no loop runs along it");
}

void checkFaces(const ModelRecord& model, ImportSession& session) {
    References loops(model.loops, "loop", session);
    for (const auto& [identifier, face] : model.faces) {
        if (!face.surface) session.drop("face", identifier, "it came without a surface");
        for (const Identifier loop : face.loops) loops.follow("face", identifier, loop);
    }
    loops.noteUnused("it bounds no face");
}

void checkShells(const ModelRecord& model, ImportSession& session) {
    References faces(model.faces, "face", session);
    for (const ShellRecord& shell : model.shells) {
        for (const Identifier face : shell.faces) faces.follow("shell", shell.identifier, face);
    }
    faces.noteUnused("it belongs to no shell");
    if (model.shells.empty()) session.drop("model", session.modelsSeen, "it holds no shell");
}

} // namespace

void noteLosses(const ModelRecord& model, ImportSession& session) {
    checkEdges(model, session);
    checkLoops(model, session);
    checkFaces(model, session);
    checkShells(model, session);
}

} // namespace host
