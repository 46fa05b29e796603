// SPDX-License-Identifier: Apache-2.0
// The standard handles, and the runtime library's descriptors over them.
#include "platform/channels.h"

#include <new>
#include <system_error>
#include <utility>
#include <windows.h>

namespace platform {
namespace {

constexpr DWORD pauseMs = 50;
constexpr DWORD turnMs = 5;
constexpr DWORD pipeBytes = 1 << 16;

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

/// Programs that are started take the standard handle; the descriptors of the runtime library, and
/// with them what this process says itself, stay as they are.
struct ErrorTap::System {
    HANDLE source = nullptr;
    HANDLE sink = nullptr;
    HANDLE original = ::GetStdHandle(STD_ERROR_HANDLE);

    ~System() {
        if (source) ::CloseHandle(source);
        if (sink) ::CloseHandle(sink);
    }
    bool open() {
        return ::CreatePipe(&source, &sink, nullptr, pipeBytes) &&
               ::SetHandleInformation(sink, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) &&
               ::SetStdHandle(STD_ERROR_HANDLE, sink);
    }
    DWORD waitingBytes() const {
        DWORD bytes = 0;
        return ::PeekNamedPipe(source, nullptr, 0, nullptr, &bytes, nullptr) ? bytes : 0;
    }
    std::size_t read(char* room, std::size_t size) const {
        DWORD got = 0;
        if (waitingBytes() == 0) return 0;
        return ::ReadFile(source, room, static_cast<DWORD>(size), &got, nullptr) ? got : 0;
    }
};

ErrorTap::ErrorTap(std::function<void(std::string_view)> take)
    : take_(std::move(take)), system_(std::make_unique<System>()) {
    if (!system_->open() || !startListening()) system_ = nullptr;
}

/// Without a thread that listens everybody's words go where they went before.
bool ErrorTap::startListening() {
    try {
        thread_ = std::thread([this] { listen(); });
        return true;
    } catch (const std::system_error&) {
        ::SetStdHandle(STD_ERROR_HANDLE, system_->original);
        return false;
    }
}

ErrorTap::~ErrorTap() { close(); }

void ErrorTap::close() {
    if (!thread_.joinable()) return;
    ::SetStdHandle(STD_ERROR_HANDLE, system_->original);
    done_ = true;
    thread_.join();
}

void ErrorTap::write(std::string_view text) const {
    const HANDLE error = system_ ? system_->original : ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD written = 0;
    ::WriteFile(error, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

void ErrorTap::pass(std::string_view piece) const {
    try {
        take_(piece);
    } catch (const std::bad_alloc&) {
        write(piece);
    }
}

/// A read would wait for as long as some process has the other end, so it looks first.
void ErrorTap::listen() {
    char piece[4096];
    DWORD silentMs = 0;
    for (;;) {
        const bool last = done_;
        const std::size_t got = system_->read(piece, sizeof piece);
        if (got > 0 || silentMs >= pauseMs) {
            pass({piece, got});
            silentMs = 0;
        }
        if (got > 0) continue;
        if (last) return;
        ::Sleep(turnMs);
        silentMs += turnMs;
    }
}

} // namespace platform
