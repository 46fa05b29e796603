// SPDX-License-Identifier: Apache-2.0
// System calls only.
#include "platform/lastfile.h"

#include <windows.h>

namespace platform {

bool leaveFile(const char* path, const char* bytes, std::size_t length) noexcept {
    ::DeleteFileA(path);
    const HANDLE file =
        ::CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const BOOL whole = ::WriteFile(file, bytes, static_cast<DWORD>(length), &written, nullptr);
    return ::CloseHandle(file) && whole && written == length;
}

} // namespace platform
