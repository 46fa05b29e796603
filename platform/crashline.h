// SPDX-License-Identifier: Apache-2.0
// The last line of a process that crashes. Everything is prepared beforehand, so that a handler
// reads plain memory only.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

/// A text of fixed room, cut at its end.
template <std::size_t room> class FixedText {
public:
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

private:
    char text[room] = {};
    std::size_t length = 0;
};

/// What `onCrash` was told, and the line that comes of it.
struct CrashLine {
    FixedText<128> program;
    FixedText<4096> unlinkPath; ///< in the system's form; empty for none
    const char* (*describe)() = nullptr;
    std::int32_t exitCode = 1;

    FixedText<1024> text;
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
