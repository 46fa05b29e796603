// SPDX-License-Identifier: Apache-2.0
// Puts the reference host's chunk manager in place before any test runs. A process keeps the one
// that it found, so the tests without it are another program.
#include "host/services/chunkmanager.h"
#include "tests/zelbasictypes/fakehost.h"

namespace {

const bool offered = [] {
    static auto* const manager = new host::ChunkManager;
    manager->addRef();
    fakehost::offer<IZelMManager>(manager);
    return true;
}();

} // namespace
