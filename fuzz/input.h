// SPDX-License-Identifier: Apache-2.0
// What a harness takes its input apart with: numbers and texts off the front, the rest as it is.
#pragma once

#include "fuzz/require.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <unistd.h>

/// Where the input ends, zeros and empty texts follow.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    template <class Number> Number number() {
        Number value{};
        const std::size_t length = std::min(sizeof value, rest_.size());
        std::memcpy(&value, rest_.data(), length);
        rest_.remove_prefix(length);
        return value;
    }
    /// Up to the end of the line or of the input.
    std::string line() {
        const std::string text(rest_.substr(0, rest_.find('\n')));
        rest_.remove_prefix(std::min(text.size() + 1, rest_.size()));
        return text;
    }
    bool isEmpty() const { return rest_.empty(); }
    std::string rest() const { return std::string(rest_); }

private:
    std::string_view rest_;
};

/// A folder for the files that a harness writes anew for each input.
class InputFolder {
public:
    InputFolder() { std::filesystem::create_directory(path_); }
    ~InputFolder() { std::filesystem::remove_all(path_); }
    InputFolder(const InputFolder&) = delete;
    InputFolder& operator=(const InputFolder&) = delete;

    std::string file(const char* name) const { return (path_ / name).string(); }
    std::string write(const char* name, std::string_view bytes) const {
        std::ofstream(file(name), std::ios::binary) << bytes;
        return file(name);
    }

private:
    const std::filesystem::path path_ =
        std::filesystem::temp_directory_path() / ("brix-fuzz-" + std::to_string(::getpid()));
};
