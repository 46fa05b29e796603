// SPDX-License-Identifier: Apache-2.0
// Attaching the control thread, finding a port and a model file.
#include "host/run/liveimport.h"

#include "client/ilivecontrol.h"
#include "platform/socket.h"

#include <random>

namespace host {
namespace {

bool isFree(std::uint16_t port) {
    const platform::Socket socket = platform::createSocket();
    const bool bound = platform::bindSocket(socket, {platform::loopbackHost, port}) == 0;
    platform::closeSocket(socket);
    return bound;
}

} // namespace

IPtr<IZelUnknown> attachControlThread(ITessoraCADImporterClient& client, bool traceFrames) {
    void* found = nullptr;
    client.qi(ILiveControl::interfaceName, &found);
    auto* control = static_cast<ILiveControl*>(found);
    return IPtr<IZelUnknown>(control ? control->attachControlThread(traceFrames) : nullptr);
}

/// By chance, so that two imports at the same time don't try the same one.
std::uint16_t findControlPort() {
    constexpr int attempts = 100;
    std::random_device chance;
    std::uniform_int_distribution<int> ports(20'000, 32'767);
    if (!platform::startSockets()) return 0;
    std::uint16_t found = 0;
    for (int i = 0; i < attempts && found == 0; ++i) {
        const auto port = static_cast<std::uint16_t>(ports(chance));
        if (isFree(port)) found = port;
    }
    platform::cleanupSockets();
    return found;
}

KorString modelBaseIn(const std::list<KorString>& files) {
    const KorString ending = KorString::borrow(u".direct", ".direct");
    for (const KorString& file : files) {
        const std::int32_t length = file.length() - ending.length();
        if (length > 0 && file.from(length) == ending) return file.left(length);
    }
    return {};
}

} // namespace host
