// SPDX-License-Identifier: Apache-2.0
// cad-importer-server: the command line, and how the process ends when it isn't by itself.
#include "platform/channels.h"
#include "platform/process.h"
#include "server/conversation.h"
#include "server/ending.h"
#include "server/failure.h"
#include "server/importrun.h"
#include "server/options.h"
#include "server/progress.h"
#include "server/writing/partialfile.h"

#include <QCoreApplication>
#include <Standard_Version.hxx>

#include <clocale>
#include <iostream>
#include <system_error>

namespace {

using server::ExitCode;

using server::endAt;

/// Called in a signal handler: what a crash leaves behind goes, but for a report, and its phase is
/// named.
const char* lastWords() {
    server::PartialFile::removeAll();
    server::LastReport::leave(ExitCode::kernelCrashed, "crashed");
    return server::Progress::phase();
}

/// The kernel can't be interrupted, so the process ends under it.
void watchForTheEnd() {
    platform::onInterrupt([] { endAt(ExitCode::stopped, "stopped on request"); });
    platform::onCrash("cad-importer-server", &lastWords, {},
                      static_cast<int>(ExitCode::kernelCrashed));
}

ExitCode perform(const QStringList& words) {
    try {
        const server::Options options = server::parseOptions(words);
        if (options.help) {
            std::cout << server::helpText().toStdString();
        } else if (options.version) {
            std::cout << "cad-importer-server " BRIX_VERSION ", Open CASCADE " OCC_VERSION_COMPLETE
                      << std::endl;
        } else {
            watchForTheEnd();
            return options.controlPort ? server::converse(options, std::cerr)
                                       : server::runImport(options, std::cerr);
        }
        return ExitCode::ok;
    } catch (const server::Failure& failure) {
        std::cerr << "cad-importer-server: " << failure.what() << std::endl;
        return failure.code();
    }
}

int run(int count, char** words) {
    platform::prepareChannels();
    platform::onParentDeath([] { endAt(ExitCode::parentGone, "the starting process has gone"); });
    const QCoreApplication application(count, words);
    // Qt has taken the user's locale; the kernel reads numbers with the C library.
    std::setlocale(LC_NUMERIC, "C");
    return static_cast<int>(perform(QCoreApplication::arguments().mid(1)));
}

} // namespace

int main(int count, char** words) {
    try {
        return run(count, words);
    } catch (const std::system_error& error) {
        std::cerr << "cad-importer-server: the system refuses a thread: " << error.what()
                  << std::endl;
        return static_cast<int>(ExitCode::kernelFailed);
    }
}
