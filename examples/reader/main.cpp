// SPDX-License-Identifier: Apache-2.0
// Reads a model file and says of which surfaces its faces are.
#include "cadimport/recordreader.h"
#include "cadimport/surfacemessages.h"
#include "cadimport/topologymessages.h"

#include <QFile>

#include <iostream>
#include <map>
#include <string>

using namespace CADImport;

namespace {

/// Handles what it derives a Visitor for; all other messages pass it by.
class FaceCounter : public BaseVisitor,
                    public Visitor<CreatePlane, void, true>,
                    public Visitor<CreateCylinder, void, true>,
                    public Visitor<CreateCone, void, true>,
                    public Visitor<CreateSphere, void, true>,
                    public Visitor<CreateTorus, void, true>,
                    public Visitor<CreateNURBSSurface, void, true>,
                    public Visitor<CreateFace, void, true>,
                    public Visitor<EndModel, void, true> {
public:
    void visit(const CreatePlane& plane) override { note(plane, "plane"); }
    void visit(const CreateCylinder& cylinder) override { note(cylinder, "cylinder"); }
    void visit(const CreateCone& cone) override { note(cone, "cone"); }
    void visit(const CreateSphere& sphere) override { note(sphere, "sphere"); }
    void visit(const CreateTorus& torus) override { note(torus, "torus"); }
    void visit(const CreateNURBSSurface& surface) override { note(surface, "free form"); }
    void visit(const CreateFace& face) override { ++faces_[kinds_[face.surfaceId]]; }

    /// Identifiers count anew in the next model.
    void visit(const EndModel&) override {
        ++models_;
        kinds_.clear();
    }

    void report() const {
        std::cout << models_ << " model(s)\n";
        for (const auto& [kind, count] : faces_) std::cout << kind << ": " << count << '\n';
    }

private:
    template <class Surface> void note(const Surface& surface, const char* kind) {
        kinds_[surface.identifier] = kind;
    }

    std::map<int, std::string> kinds_; ///< of the surfaces of the model at hand
    std::map<std::string, int> faces_;
    int models_ = 0;
};

} // namespace

int main(int count, char** words) {
    QFile file(count == 2 ? QString::fromLocal8Bit(words[1]) : QString());
    if (!file.open(QIODevice::ReadOnly)) {
        std::cerr << "usage: example-reader FILE.direct\n";
        return 2;
    }
    FaceCounter counter;
    RecordReader records(file);
    while (!records.atEnd()) {
        const Message* message = records.look(); // null for a name that isn't known
        if (message && message->isValid()) message->accept(counter);
    }
    counter.report();
    return records.ranOut() ? 1 : 0; // a file that was cut short
}
