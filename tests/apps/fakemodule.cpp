// SPDX-License-Identifier: Apache-2.0
// A component whose client reads no file: the last word of the option list names what it does.
//   sphere    gives a sphere of 10 mm and a coordinate system
//   losses    the same, its edge without a curve
//   export    reports an exported file and no model
//   ask       asks a question; the answer yes gives the sphere
//   refused   says that the server could not be started
//   interrupt asks the busy state until it says that the work is to stop
//   nothing   does nothing
#include "cadimport/modelling/curves.h"
#include "cadimport/modelling/importtarget.h"
#include "cadimport/modelling/izelcadimporter.h"
#include "cadimport/modelling/izelcoordinatesystem.h"
#include "cadimport/modelling/izelfeature.h"
#include "cadimport/modelling/surfaces.h"
#include "client/itessoracadimporterclient.h"
#include "component/itemfactory.h"
#include "component/manageraccess.h"
#include "component/objects/queryinterface.h"
#include "component/objects/services/iguibusystate.h"
#include "component/objects/services/iguisimpledlg.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/math/zelmatrix4.h"
#include "zelbasictypes/sets/bitvector.h"
#include "zelbasictypes/text/zeltranslator.h"

#include <chrono>
#include <numbers>
#include <thread>

namespace {

constexpr double pi = std::numbers::pi;
constexpr ZelVector3 xAxis{1, 0, 0};
constexpr ZelVector3 zAxis{0, 0, 1};

class FakeClient : public ITessoraCADImporterClient {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<ITessoraCADImporterClient>(this, className(), name, result);
    }
    const char* className() override { return "FakeClient"; }

    bool importModel(const KorString&, const KorString&, const std::list<KorString>& arguments,
                     IZelImportTarget* target, void*, void*,
                     std::list<KorString>& exportedFiles) override {
        const KorString& word = arguments.back();
        if (word == "export") exportedFiles.emplace_back("C:\\out\\part.igs");
        if (word == "sphere" || word == "losses" || (word == "ask" && show(3, "Go on?"))) {
            giveCoordinateSystem();
            giveSphere(*target, !(word == "losses"));
        }
        if (word == "refused") show(1, "The CAD Importer server could not be started");
        if (word == "interrupt") waitForInterrupt();
        return !exportedFiles.empty() || !systems_.empty();
    }
    bool reservedQuery() override { return false; }
    void setEscaped() override {}
    void setFinished() override {}
    void setParameters(const std::list<KorString>&) override {}
    void setControlSocket(const KorString&, std::uint16_t) override {}
    void setDataSocket(const KorString&, std::uint16_t) override {}
    std::list<void*>& models() override { return models_; }
    bool coordinateSystems(std::list<IZelFeature*>& features,
                           std::list<BitVector*>& masks) override {
        features = systems_;
        masks = masks_;
        return !systems_.empty();
    }
    bool hasResults() override { return !models_.empty() || !systems_.empty(); }

private:
    static bool show(std::int32_t kind, const char* text) {
        const SPtr<IGuiSimpleDlg> dialog;
        return dialog &&
               dialog->show(kind, zelTranslate(text), KorString(" "), false, false, false) == 1;
    }

    static void waitForInterrupt() {
        const SPtr<IGuiBusyState> busy;
        while (!busy->isCancelled()) std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }

    void giveCoordinateSystem() {
        void* found = nullptr;
        zelGetService("IZelCoordinateSystem", &found);
        auto* system = static_cast<IZelCoordinateSystem*>(found);
        system->setOrigin({1, 2, 3});
        system->setAxes(xAxis, zAxis);
        systems_.push_back(zelQuery<IZelFeature>(system));
        masks_.push_back(new BitVector(10));
    }

    /// One face, bounded by its seam, which runs up first and down again.
    void giveSphere(IZelImportTarget& target, bool withCurve) {
        const SPtr<IZelArc> seam;
        const SPtr<IZelSphere> sphere;
        const ZelMatrix4 scale = ZelMatrix4::uniformScale(0.001);
        seam->define({0, 0, 0}, 10, {0, -1, 0}, xAxis, -pi / 2, pi / 2, nullptr, 0);
        sphere->define({0, 0, 0}, 10, zAxis, xAxis, {0, 2 * pi}, {-pi / 2, pi / 2}, nullptr,
                       nullptr);
        zelQuery<IZelFeature>(seam.iface)->transform(&scale);
        zelQuery<IZelFeature>(sphere.iface)->transform(&scale);

        void* made = nullptr;
        zelCreateInstance(
            {0x57e3d220, 0x2a63, 0x43d7, {0xbc, 0x5f, 0xbf, 0x59, 0x47, 0x6a, 0x48, 0xc9}},
            "IZelCADImporter", &made);
        const IPtr<IZelCADImporter> importer(static_cast<IZelCADImporter*>(made));
        const std::int32_t edges[] = {1 << 8, 1 << 8};
        const std::int32_t face = 1;
        importer->beginModel(true, 1e-3);
        importer->createEdge(edges[0]);
        if (withCurve) importer->setEdgeCurve(edges[0], zelQuery<IZelCurve>(seam.iface));
        for (const std::int32_t side : {0, 1}) {
            importer->setEdgeFace(edges[0], side, face);
            importer->setEdgeSense(edges[0], side, side == 1);
        }
        importer->createLoop(1, edges, 2, true);
        importer->createFace(face);
        importer->setFaceSurface(face, zelQuery<IZelSurface>(sphere.iface));
        importer->addFaceLoop(face, 1);
        importer->setShellBox({{-0.01, -0.01, -0.01}, {0.01, 0.01, 0.01}});
        importer->createShell(1, &face, 1, true);
        IZelImportedModel* model = target.resolveModel(importer->finishModel());
        models_.push_back(model->modelEntry());
    }

    std::list<void*> models_;
    std::list<IZelFeature*> systems_;
    std::list<BitVector*> masks_;
};

const ZelTClassItemFactory<FakeClient> itemFactory{
    "FakeClient", nullptr,
    ZelGuid{0x53de97ac, 0x2769, 0x4d39, {0xad, 0xbd, 0x37, 0x31, 0x20, 0xb9, 0x81, 0x8f}}};

} // namespace
