// SPDX-License-Identifier: Apache-2.0
// The renderer's interfaces.
#include "host/services/renderer.h"

#include "component/objects/queryinterface.h"

namespace host {

void Renderer::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IGfxRenderer>(this, className(), name, result);
}

} // namespace host
