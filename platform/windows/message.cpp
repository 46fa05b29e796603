// SPDX-License-Identifier: Apache-2.0
// A message box without an owner.
#include "platform/message.h"

#include "platform/windows/widetext.h"

#include <windows.h>

namespace platform {

void showMessage(const char16_t* title, const char16_t* text) {
    ::MessageBoxW(nullptr, wide(text), wide(title), MB_OK);
}

} // namespace platform
