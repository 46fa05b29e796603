// SPDX-License-Identifier: Apache-2.0
// From a file to a component to a client.
#include "host/run/loadedmodule.h"

#include "component/entrypoint.h"
#include "zelbasictypes/memory/bucketmemorypool.h"

#include <QFileInfo>

namespace host {
namespace {

ZelEntryPoint entryPointOf(platform::Module module) {
    return reinterpret_cast<ZelEntryPoint>(platform::findEntry(module, zelEntryPointName));
}

} // namespace

LoadedModule::~LoadedModule() {
    if (component_) component_->terminate();
    component_ = nullptr;
    // Texts of the module may be in our pool, and only the module can free them.
    currentBucketPool()->clear();
    platform::unloadModule(module_);
}

std::string LoadedModule::load(const QString& fileName, IZelComponentManager& manager) {
    if (fileName.isEmpty()) return "the module is missing: none lies beside this program";
    const std::string name = fileName.toStdString();
    if (!QFileInfo::exists(fileName)) return "the module is missing: " + name;
    const QString path = QFileInfo(fileName).absoluteFilePath();
    module_ = platform::loadModule(path.toStdU16String().c_str());
    if (!module_) return "the module can't be loaded: " + platform::moduleError();
    return bringUp(name, manager);
}

std::string LoadedModule::bringUp(const std::string& name, IZelComponentManager& manager) {
    const ZelEntryPoint entryPoint = entryPointOf(module_);
    if (!entryPoint) return "this is no component, it has no EntryPoint: " + name;

    std::int32_t version = 0;
    IZelComponent* component = nullptr;
    if (entryPoint(&version, &component) != 1 || !component)
        return "no component came from " + name;
    component_ = component;
    if (version != zelContractVersion) {
        return "the component's version is " + std::to_string(version) + " instead of " +
               std::to_string(zelContractVersion) + ": " + name;
    }
    component_->initialize(&manager);
    return {};
}

IPtr<ITessoraCADImporterClient> LoadedModule::makeClient() {
    IZelUnknown* made = nullptr;
    if (!component_ || component_->createInstance(zelImportClientClassId, &made) == 0) return {};
    const IPtr<IZelUnknown> held(made);
    return IPtr<ITessoraCADImporterClient>(zelQuery<ITessoraCADImporterClient>(made));
}

} // namespace host
