// SPDX-License-Identifier: Apache-2.0
// The standard handles, and the runtime library's descriptors over them.
#include "platform/channels.h"

#include <fcntl.h>
#include <io.h>
#include <utility>
#include <windows.h>

namespace platform {
namespace {

constexpr int errorChannel = 2;
constexpr DWORD pauseMs = 50;
constexpr DWORD turnMs = 5;
constexpr unsigned pipeBytes = 1 << 16;

HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor)); }

DWORD waitingBytes(int descriptor) {
    DWORD bytes = 0;
    return ::PeekNamedPipe(handleOf(descriptor), nullptr, 0, nullptr, &bytes, nullptr) ? bytes : 0;
}

void openOnNothing(DWORD channel) {
    const HANDLE present = ::GetStdHandle(channel);
    if (present && present != INVALID_HANDLE_VALUE) return;
    const HANDLE nothing =
        ::CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                      nullptr, OPEN_EXISTING, 0, nullptr);
    if (nothing != INVALID_HANDLE_VALUE) ::SetStdHandle(channel, nothing);
}

} // namespace

/// For the programs that are started from here: handles have no numbers that others could get, and
/// no signal comes of a write that nobody reads.
void prepareChannels() {
    for (const DWORD channel : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
        openOnNothing(channel);
    }
}

bool isInputTerminal() {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_INPUT_HANDLE), &mode);
}

bool waitForInput(std::uint32_t milliseconds) {
    return ::WaitForSingleObject(::GetStdHandle(STD_INPUT_HANDLE), milliseconds) == WAIT_OBJECT_0;
}

/// A write of nothing tells of a pipe whether its other end is there.
bool isOutputRead() {
    const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD written = 0;
    if (::GetFileType(output) != FILE_TYPE_PIPE) return true;
    return ::WriteFile(output, "", 0, &written, nullptr);
}

bool isErrorTerminal() {
    DWORD mode = 0;
    return ::GetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), &mode);
}

std::int32_t errorColumns() {
    CONSOLE_SCREEN_BUFFER_INFO buffer{};
    if (!::GetConsoleScreenBufferInfo(::GetStdHandle(STD_ERROR_HANDLE), &buffer)) return 80;
    return buffer.srWindow.Right - buffer.srWindow.Left + 1;
}

/// The runtime library keeps the standard handle in step with its descriptor, where programs that
/// are started take theirs from.
ErrorTap::ErrorTap(std::function<void(std::string_view)> take) : take_(std::move(take)) {
    int ends[2];
    if (::_pipe(ends, pipeBytes, _O_BINARY | _O_NOINHERIT) != 0) return;
    original_ = ::_dup(errorChannel);
    if (original_ >= 0 && ::_dup2(ends[1], errorChannel) == 0) {
        ::SetStdHandle(STD_ERROR_HANDLE, handleOf(errorChannel));
        source_ = ends[0];
        thread_ = std::thread([this] { listen(); });
    } else {
        ::_close(ends[0]);
    }
    ::_close(ends[1]);
}

void ErrorTap::close() {
    if (!thread_.joinable()) return;
    ::_dup2(original_, errorChannel);
    ::SetStdHandle(STD_ERROR_HANDLE, handleOf(errorChannel));
    done_ = true;
    thread_.join();
    ::_close(source_);
}

ErrorTap::~ErrorTap() {
    close();
    if (original_ >= 0) ::_close(original_);
}

void ErrorTap::write(std::string_view text) const {
    const int file = original_ < 0 ? errorChannel : original_;
    ::_write(file, text.data(), static_cast<unsigned>(text.size()));
}

/// A read would wait for as long as some process has the other end, so it looks first.
void ErrorTap::listen() {
    char piece[4096];
    DWORD silentMs = 0;
    for (;;) {
        const bool last = done_;
        const DWORD waiting = waitingBytes(source_);
        const int got = waiting ? ::_read(source_, piece, sizeof piece) : 0;
        if (got > 0 || silentMs >= pauseMs) {
            take_({piece, static_cast<std::size_t>(got > 0 ? got : 0)});
            silentMs = 0;
        }
        if (got > 0) continue;
        if (last) return;
        ::Sleep(turnMs);
        silentMs += turnMs;
    }
}

} // namespace platform
