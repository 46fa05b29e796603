// SPDX-License-Identifier: Apache-2.0
/// @file
/// Composes the last line that a crashing process prints. Everything is prepared beforehand, so
/// that the signal handler only reads plain memory.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

/// A terminated text in a fixed buffer of `room` bytes. Text that doesn't fit is cut off. It uses
/// no heap, so a signal handler may use it.
template <std::size_t room> class FixedText {
public:
    /// Changes or reads the text. The size is in bytes, without the terminator.
    /// @{
    void clear() { length = 0; }
    void append(const char* more) {
        while (*more && length < room - 1) text[length++] = *more++;
        text[length] = '\0';
    }
    void assign(const char* other) {
        clear();
        append(other);
    }
    const char* c_str() const { return text; }
    std::size_t size() const { return length; }
    /// @}

private:
    char text[room] = {};
    std::size_t length = 0;
};

/// The arguments of onCrash(), and the line composed from them.
struct CrashLine {
    /// The name that opens the line.
    FixedText<128> program;
    FixedText<4096> unlinkPath;          ///< file to remove, in the system's form; empty for none
    const char* (*describe)() = nullptr; ///< what the process does; may be null or answer null
    std::int32_t exitCode = 1;           ///< with which the process ends

    FixedText<1024> text; ///< the line, once composed
    /// Fills `text`. `kind` names the crash, such as the signal.
    void compose(const char* kind) {
        text.assign(program.c_str());
        text.append(": crashed (");
        text.append(kind);
        text.append(")");
        if (const char* doing = describe ? describe() : nullptr) {
            text.append(" while ");
            text.append(doing);
        }
        text.append("\n");
    }
};

} // namespace platform
