// SPDX-License-Identifier: Apache-2.0
// Model by model, then what is made of all of them.
#include "host/shape/rebuilding.h"

#include "host/shape/exportfile.h"
#include "host/shape/filefailure.h"
#include "host/shape/kernelcall.h"
#include "host/shape/measure.h"
#include "host/shape/modelbuilder.h"
#include "host/shape/picture.h"
#include "host/shape/pngfile.h"

#include <BRep_Builder.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>

#include <algorithm>

namespace host {
namespace {

class Rebuilder {
public:
    Rebuilder(const RebuildingOrder& order, const std::function<void(const WorkerLine&)>& tell)
        : order_(order), tell_(tell) {
        progress_.begins = [this](const Step& step) { tell_(step); };
        progress_.drops = [this](DroppedRecord drop) {
            drop.model = progress_.model;
            tell_(drop);
        };
        progress_.notes = [this](DroppedRecord note) {
            note.model = progress_.model;
            tell_(WorkerNote{note});
        };
        progress_.skipped = order.skipped;
        builder_.MakeCompound(all_);
    }

    void rebuild(const ImportRecord& record) {
        int ordinal = 0;
        for (const ModelRecord& model : record.models) rebuild(model, ++ordinal);
        progress_.model = 0;
        makeFile("picture", order_.picture, [this] { drawPicture(); });
        makeFile("export", order_.exportFile, [this] { exportShape(all_, order_.exportFile); });
        tell_(WorkDone{});
    }

private:
    void rebuild(const ModelRecord& record, int ordinal) {
        progress_.model = ordinal;
        const BuiltModel model = builtModel(record, progress_);
        for (TopoDS_Iterator part(model.shape); part.More(); part.Next()) {
            builder_.Add(all_, part.Value());
        }
        RebuiltModel figures = measured(model, progress_);
        if (order_.tellsMeasures) {
            for (const FaceMeasure& face : figures.faceMeasures) tell_(face);
        }
        tell_(figures);
    }

    template <class Work>
    void makeFile(const char* what, const std::string& name, const Work& work) {
        if (name.empty() || progress_.isSkipped(what, 0)) return;
        progress_.begin(what, 0);
        std::string failure;
        try {
            failure = kernelCall(work);
        } catch (const FileFailure& fileFailure) {
            failure = fileFailure.what();
        }
        if (failure.empty()) {
            tell_(WrittenFile{what == std::string("picture")});
        } else {
            progress_.drop(what, 0, failure);
        }
    }

    void drawPicture() const {
        const int pixels = std::max(order_.pictureWidth, order_.pictureHeight);
        const ShapeMesh mesh = meshOf(all_, MeshFineness::forPixels(pixels));
        writePng(pictureOf(mesh, order_.pictureWidth, order_.pictureHeight), order_.picture);
    }

    const RebuildingOrder& order_;
    const std::function<void(const WorkerLine&)>& tell_;
    Progress progress_;
    BRep_Builder builder_;
    TopoDS_Compound all_;
};

/// The kernel's messages would stand between ours.
void silenceKernel() { Message::DefaultMessenger()->ChangePrinters().Clear(); }

} // namespace

void rebuildHere(const ImportRecord& record, const RebuildingOrder& order,
                 const std::function<void(const WorkerLine&)>& tell) {
    silenceKernel();
    Rebuilder(order, tell).rebuild(record);
}

} // namespace host
