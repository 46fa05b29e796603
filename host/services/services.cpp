// SPDX-License-Identifier: Apache-2.0
// The list of services.
#include "host/services/services.h"

#include "host/componentmanager.h"
#include "host/services/assertionhandler.h"
#include "host/services/chunkmanager.h"
#include "host/services/errorservice.h"
#include "host/services/macromanager.h"
#include "host/services/memorychecker.h"
#include "host/services/progress.h"
#include "host/services/random.h"
#include "host/services/renderer.h"
#include "host/services/stringsupport.h"
#include "host/services/translatorservice.h"
#include "host/text.h"
#include "zelbasictypes/memory/bucketmemorypool.h"

#include <algorithm>
#include <ostream>

namespace host {
namespace {

/// The translator is there by itself and, once it has a file, through the translator service.
void offerTranslations(ComponentManager& manager, SettingsStore& settings, std::ostream& messages) {
    auto* translator = new FileTranslator;
    manager.offerService("IZelTranslator", translator);
    const KorString* fileName = settings.getString("Host/Translations", nullptr);
    if (fileName && !translator->load(toQString(*fileName))) {
        messages << "the translations can't be read: " << toUtf8(*fileName) << std::endl;
    }
    manager.offerService("IZelTranslatorService",
                         new TranslatorService(fileName ? translator : nullptr));
}

ChunkManager* makeChunkManager(SettingsStore& settings) {
    constexpr double most = ChunkManager::noLimit;
    const double units = settings.getDouble("Host/Chunk Limit", most);
    return new ChunkManager(static_cast<std::int32_t>(std::clamp(units, 0.0, most)));
}

BucketMemoryPool* makePool() {
    return new BucketMemoryPool(BucketMemoryPool::standardGranularity,
                                BucketMemoryPool::standardLinearMax,
                                BucketMemoryPool::standardBucketMax);
}

} // namespace

Services offerServices(ComponentManager& manager, const ServiceOptions& options) {
    // Strings ask for these two first, so that they come before anything else is made.
    manager.offerService("IBucketMemoryPool", makePool());
    manager.offerService("IZelStrSupport", new StringSupport);

    Services services;
    services.settings = options.settings ? options.settings.iface : new SettingsStore;
    services.dialog = new SimpleDialog(options.answer, options.terminal, options.messages);
    services.busyState = new BusyState;
    services.directories = new DirectoryService;
    SettingsStore& settings = *services.settings.iface;

    manager.offerService("IDataStore", &settings);
    manager.offerService("IGuiSimpleDlg", services.dialog.iface);
    manager.offerService("IGuiBusyState", services.busyState.iface);
    manager.offerService("IZelDirService", services.directories.iface);
    manager.offerService("IMacroMgr",
                         new MacroManager(settings.getBool("Host/Macro Running", 0) != 0));
    manager.offerService("IZelErrorService", new ErrorService(options.messages));
    manager.offerService("IZelAssertHandlerCB", new AssertionHandler(options.messages));
    manager.offerService("IGfxRenderer", new Renderer);
    manager.offerService("IMemChecker",
                         new MemoryChecker(settings.getBool("Host/Memory Checker", 0) != 0));
    manager.offerService("IZelProgress", new Progress);
    manager.offerService("IZelRandom", new Random);
    manager.offerService("IZelMManager", makeChunkManager(settings));
    offerTranslations(manager, settings, options.messages);
    return services;
}

} // namespace host
