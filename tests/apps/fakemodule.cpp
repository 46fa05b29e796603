// SPDX-License-Identifier: Apache-2.0
// A component whose client reads no file: the last word of the option list names what it does.
//   sphere    gives a sphere of 10 mm and a coordinate system
//   export    reports an exported file and no model
//   ask       asks a question; the answer yes gives the sphere
//   nothing   does nothing
#include "cadimport/creator.h"
#include "client/itessoracadimporterclient.h"
#include "component/itemfactory.h"
#include "component/manageraccess.h"
#include "component/objects/services/iguisimpledlg.h"
#include "component/objects/sptr.h"
#include "tests/apps/modelfile.h"
#include "tests/support/service.h"
#include "zelbasictypes/sets/bitvector.h"
#include "zelbasictypes/text/zeltranslator.h"

namespace {

class FakeClient : public testsupport::Service<ITessoraCADImporterClient> {
public:
    bool importModel(const KorString&, const KorString&, const std::list<KorString>& arguments,
                     IZelImportTarget* target, void*, void*,
                     std::list<KorString>& exportedFiles) override {
        const KorString& word = arguments.back();
        if (word == "export") exportedFiles.emplace_back("C:\\out\\part.igs");
        if (word == "sphere" || (word == "ask" && wantsToGoOn())) giveModel(target);
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
    static bool wantsToGoOn() {
        const SPtr<IGuiSimpleDlg> dialog;
        return dialog &&
               dialog->show(3, zelTranslate("Go on?"), KorString(" "), false, false, false) == 1;
    }

    void giveModel(IZelImportTarget* target) {
        CADImport::Creator creator(target);
        const auto give = [&creator](const CADImport::Message& message) {
            message.accept(creator);
        };
        CADImport::CreateCoordinateSystem system;
        system.identifier = 1;
        system.origin = {1, 2, 3};
        system.xDirection = {1, 0, 0};
        system.yDirection = {0, 1, 0};
        give(system);
        give(apps::newModel(10));
        apps::giveSphere(give);
        give(CADImport::EndModel());
        models_ = creator.models();
        creator.coordinateSystems(systems_, masks_);
    }

    std::list<void*> models_;
    std::list<IZelFeature*> systems_;
    std::list<BitVector*> masks_;
};

const ZelTClassItemFactory<FakeClient> itemFactory{"FakeClient", nullptr, zelImportClientClassId};

} // namespace
