// SPDX-License-Identifier: Apache-2.0
// The checks of loading and of transfer, and the faces that nobody speaks of.
#include "server/reading/transferlosses.h"

#include <Interface_Check.hxx>
#include <Interface_CheckIterator.hxx>
#include <Interface_InterfaceModel.hxx>
#include <StepShape_FaceSurface.hxx>
#include <Transfer_Binder.hxx>
#include <Transfer_TransientProcess.hxx>
#include <XSControl_TransferReader.hxx>
#include <XSControl_WorkSession.hxx>

#include <cstring>
#include <set>

namespace server {
namespace {

using Model = Handle(Interface_InterfaceModel);

std::string typeOf(const Model& model, int number) {
    if (number < 1 || number > model->NbEntities()) return "file";
    return model->Value(number)->DynamicType()->Name();
}

/// What can't be parsed may have been anything.
bool isSyntaxError(const std::string& text) { return text.find("syntax") != text.npos; }

/// The kernel's packages of what shapes are made of. The rest is names, people, dates, colours,
/// drawings, headers.
bool isPartOfShape(const std::string& type) {
    for (const char* package : {"StepGeom_", "StepShape_", "StepRepr_", "StepData_", "IGESGeom_",
                                "IGESSolid_", "IGESBasic_", "IGESData_"}) {
        if (type.compare(0, std::strlen(package), package) == 0) return true;
    }
    return false;
}

void reportFailed(const Model& model, const Handle(Interface_Check) & check, int number,
                  const char* step, Report& report) {
    if (check.IsNull() || !check->HasFailed()) return;
    const std::string type = typeOf(model, number);
    const std::string why = type + " failed in " + step + ": " + check->CFail(1);
    const bool isLoss = isPartOfShape(type) || isSyntaxError(why);
    isLoss ? report.dropped("entity", number, why) : report.noted("entity", number, why);
}

std::set<int> reportChecks(const Model& model, const Interface_CheckIterator& checks,
                           Report& report) {
    std::set<int> named;
    for (checks.Start(); checks.More(); checks.Next()) {
        if (checks.Value()->HasFailed()) named.insert(checks.Number());
        reportFailed(model, checks.Value(), checks.Number(), "transfer", report);
    }
    return named;
}

void reportSilentFaces(const XSControl_Reader& reader, const std::set<int>& named, Report& report) {
    const Model model = reader.Model();
    for (int i = 1; i <= model->NbEntities(); ++i) {
        const Handle(Standard_Transient) entity = model->Value(i);
        if (Handle(StepShape_FaceSurface)::DownCast(entity).IsNull() || named.count(i)) continue;
        if (!hasResult(reader, entity)) {
            report.dropped("entity", i, typeOf(model, i) + " left no face behind");
        }
    }
}

} // namespace

void reportLoadFailures(const XSControl_Reader& reader, Report& report) {
    const Model model = reader.Model();
    if (model.IsNull()) return;
    reportFailed(model, model->GlobalCheck(Standard_True), 0, "loading", report);
    for (int i = 1; i <= model->NbEntities(); ++i) {
        reportFailed(model, model->Check(i, Standard_True), i, "loading", report);
    }
}

bool hasResult(const XSControl_Reader& reader, const Handle(Standard_Transient) & entity) {
    const Handle(Transfer_Binder) binder =
        reader.WS()->TransferReader()->TransientProcess()->Find(entity);
    return !binder.IsNull() && binder->HasResult();
}

void reportTransferFailures(const XSControl_Reader& reader, Report& report) {
    const Handle(Transfer_TransientProcess) process =
        reader.WS()->TransferReader()->TransientProcess();
    const Model model = reader.Model();
    if (process.IsNull() || model.IsNull()) return;
    const auto named = reportChecks(model, process->CheckList(Standard_False), report);
    reportSilentFaces(reader, named, report);
}

} // namespace server
