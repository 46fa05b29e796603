// SPDX-License-Identifier: Apache-2.0
// A directory for one test, seen through the standard library rather than our own.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace platform::test {

class Scratch {
public:
    Scratch()
        : root(std::filesystem::temp_directory_path() /
               ("platform-test-" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directory(root);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() { std::filesystem::remove_all(root); }

    /// In the library's form; the name of a path below is taken as it is.
    std::u16string path(const std::u16string& name = u"") const {
        std::u16string text = root.u16string();
        for (char16_t& c : text) {
            if (c == u'/') c = u'\\';
        }
        return name.empty() ? text : text + u'\\' + name;
    }
    std::string narrow(const std::string& name) const { return (root / name).string(); }
    bool has(const std::string& name) const { return std::filesystem::exists(root / name); }
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(root / name, std::ios::binary) << content;
    }
    std::string read(const std::string& name) const {
        std::ifstream file(root / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    const std::filesystem::path root;
};

} // namespace platform::test
