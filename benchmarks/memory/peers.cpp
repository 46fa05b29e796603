// SPDX-License-Identifier: Apache-2.0
// Finds the peers' calls.
#include "benchmarks/memory/peers.h"

#include "benchmarks/memory/jemallocpeer.h"
#include "platform/module.h"

#include <cstdio>
#include <cstdlib>

namespace {

template <class Function> Function entry(platform::Module module, const char* name) {
    return reinterpret_cast<Function>(platform::findEntry(module, name));
}

} // namespace

std::vector<AllocatorPeer> allocatorPeers() {
    std::vector<AllocatorPeer> peers = {{"glibc", {std::malloc, std::free}}};
    const platform::Module mimalloc = platform::loadModule("libmimalloc.so.2");
    if (mimalloc) {
        peers.push_back({"mimalloc",
                         {entry<void* (*)(std::size_t)>(mimalloc, "mi_malloc"),
                          entry<void (*)(void*)>(mimalloc, "mi_free")}});
    } else {
        std::fprintf(stderr, "no mimalloc: %s\n", platform::moduleError().c_str());
    }
    if (jemallocCalls().allocate == std::malloc) {
        std::fputs("no jemalloc: the library came without it\n", stderr);
    } else {
        peers.push_back({"jemalloc", jemallocCalls()});
    }
    return peers;
}
