// SPDX-License-Identifier: Apache-2.0
// The object that an import is for, and the models that it hands out.
#pragma once

#include "cadimport/modelling/importtarget.h"
#include "host/modelling/importsession.h"

namespace host {

/// A finished model. Its entry is the object itself, or null when the model came to nothing.
class ImportedModel : public IZelImportedModel {
public:
    /// `session` outlives the model. `counts`: whether there is a record behind it.
    ImportedModel(ImportSession& session, bool counts) : session_(session), counts_(counts) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "ImportedModel"; }
    void* modelEntry() override;

private:
    ImportSession& session_;
    bool counts_;
};

class ImportTarget : public IZelImportTarget {
public:
    explicit ImportTarget(std::shared_ptr<ImportSession> session) : session_(std::move(session)) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "ImportTarget"; }
    IZelImportedModel* resolveModel(void* finished) override;

private:
    std::shared_ptr<ImportSession> session_;
};

} // namespace host
