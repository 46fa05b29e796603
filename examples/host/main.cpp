// SPDX-License-Identifier: Apache-2.0
// A host that has the import module read a CAD file, and prints the calls that build the model.
#include "cadimport/modelling/curves.h"
#include "cadimport/modelling/importtarget.h"
#include "cadimport/modelling/izelcadimporter.h"
#include "cadimport/modelling/izelfeature.h"
#include "cadimport/modelling/surfaces.h"
#include "client/itessoracadimporterclient.h"
#include "component/entrypoint.h"
#include "component/izelcomponent.h"
#include "component/izelcomponentmanager.h"
#include "component/manageraccess.h"
#include "component/objects/iptr.h"
#include "component/objects/queryinterface.h"
#include "platform/module.h"
#include "zelbasictypes/math/zelmatrix4.h"
#include "zelbasictypes/memory/bucketmemorypool.h"

#include <atomic>
#include <iostream>

using Number = std::int32_t;

std::ostream& operator<<(std::ostream& out, const ZelVector3& v) {
    return out << '(' << v.x << ' ' << v.y << ' ' << v.z << ')';
}
std::ostream& operator<<(std::ostream& out, const ZelRange& range) {
    return out << '[' << range.first << ' ' << range.last << ']';
}
template <class... Arguments> void print(const char* call, const Arguments&... arguments) {
    std::cout << call;
    ((std::cout << ' ' << arguments), ...);
    std::cout << '\n';
}

/// A counted object that answers for its interfaces.
template <class... Interfaces> struct HostObject : Interfaces... {
    void qi(const char* name, void** result, Number) override {
        zelAnswerQuery<Interfaces...>(this, className(), name, result);
    }
    const char* className() override { return "HostObject"; }
};

/// A curve or surface of the kind `Shape`, which the importer is given as `Stored`.
template <class Shape, class Stored, class Define = decltype(&Shape::define)> struct ShapeObject;

template <class Shape, class Stored, class... Arguments>
struct ShapeObject<Shape, Stored, void (Shape::*)(Arguments...)>
    : HostObject<Shape, Stored, IZelFeature> {
    void define(Arguments... arguments) override { print(Shape::interfaceName, arguments...); }
    void transform(const ZelMatrix4* matrix) override { print("scale", matrix->m[0]); }
};

struct NurbSurface : ShapeObject<IZelNurbSurface, IZelSurface> {
    void setKnotU(Number index, double knot) override { print("  knot u", index, knot); }
    void setKnotV(Number index, double knot) override { print("  knot v", index, knot); }
    void setControlPoint(Number row, Number column, const ZelVector3& p, double w) override {
        print("  point", row, column, p, w);
    }
};

/// Edges, loops, faces and shells bear the numbers that the server gave them.
struct Importer : HostObject<IZelCADImporter> {
    void beginModel(bool absolute, double accuracy) override { print("model", absolute, accuracy); }
    void setShellBox(const ZelBox3& box) override { print("box", box.min, box.max); }
    void createEdge(Number edge) override { print("edge", edge); }
    void setEdgeFace(Number, Number side, Number face) override { print("  face", side, face); }
    void setEdgeSense(Number, Number side, bool sense) override { print("  sense", side, sense); }
    void setEdgeCurve(Number, IZelCurve*) override { print("  curve"); }
    void createLoop(Number id, const Number*, Number n, bool) override { print("loop", id, n); }
    void createFace(Number face) override { print("face", face); }
    void setFaceSurface(Number, IZelSurface*) override { print("  surface"); }
    void addFaceLoop(Number, Number loop) override { print("  loop", loop); }
    void createShell(Number id, const Number*, Number n, bool) override { print("shell", id, n); }
    void* finishModel() override {
        print("end");
        return this;
    }
};

/// What the import is for. As this host keeps no models, one object stands for all of them.
struct Target : HostObject<IZelImportTarget, IZelImportedModel> {
    IZelImportedModel* resolveModel(void*) override { return this; }
    void* modelEntry() override { return this; }
};

struct Manager : HostObject<IZelComponentManager> {
    Number createInstance(const ZelGuid& id, const KorCString& name, void** out) override {
        return id == zelImporterClassId && give<IZelCADImporter, Importer>(name, out);
    }
    Number getService(const KorCString& name, void** out) override {
        return giveShape<IZelCurve, IZelLine, IZelArc, IZelEllipse>(name, out) ||
               giveShape<IZelSurface, IZelPlane, IZelCylinder, IZelCone>(name, out) ||
               giveShape<IZelSurface, IZelSphere, IZelTorus>(name, out) ||
               give<IZelNurbSurface, NurbSurface>(name, out);
    }
    Number status() override { return 0; }
    void incrementCount(Number* count) override { ++std::atomic_ref(*count); }
    bool decrementCount(Number* count) override { return --std::atomic_ref(*count) == 0; }
    IZelComponentManager* findManager(const KorCString&, Number) override { return nullptr; }

    /// A new object, without a reference, seen as the interface that was asked for.
    template <class Interface, class Object> bool give(const KorCString& name, void** out) {
        if (name != Interface::interfaceName) return false;
        *out = static_cast<Interface*>(new Object);
        return true;
    }
    template <class Stored, class... Shapes> bool giveShape(const KorCString& name, void** out) {
        return (give<Shapes, ShapeObject<Shapes, Stored>>(name, out) || ...);
    }
};

/// What comes from the module is given back by the end of this function.
bool runImport(IZelComponent& component, const char* server, const char* file, const char* base) {
    IZelUnknown* made = nullptr;
    if (component.createInstance(zelImportClientClassId, &made) == 0) return false;
    const IPtr<ITessoraCADImporterClient> client(zelQuery<ITessoraCADImporterClient>(made));
    const IPtr<Target> target(new Target);
    std::list<KorString> exportedFiles;
    client->importModel({}, server, {"-InputFile", file, "-OutputBaseName", base}, target.iface,
                        nullptr, nullptr, exportedFiles);
    return client->hasResults();
}

int main(int count, char** words) {
    if (count != 5) {
        std::cerr << "usage: example-host MODULE SERVER FILE BASE\n";
        return 2;
    }
    static Manager& manager = *new Manager; // outlives everything that it counts
    zelSetManager(&manager);
    const platform::Module module = platform::loadModule(words[1]);
    if (!module) {
        std::cerr << platform::moduleError() << '\n';
        return 1;
    }
    const auto enter =
        reinterpret_cast<ZelEntryPoint>(platform::findEntry(module, zelEntryPointName));
    Number version = 0;
    IZelComponent* made = nullptr;
    if (!enter || enter(&version, &made) != 1 || version != zelContractVersion) return 1;
    IPtr<IZelComponent> component(made);
    component->initialize(&manager);
    const bool imported = runImport(*component.iface, words[2], words[3], words[4]);
    component->terminate();
    component = nullptr;
    currentBucketPool()->clear(); // blocks of the module may be kept there
    platform::unloadModule(module);
    return imported ? 0 : 1;
}
